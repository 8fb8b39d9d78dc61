# Use ccache for every compile when it is installed; the fixed build directory of
# the Python build keeps the cache hits across rebuilds.
find_program(VELMAR_CCACHE ccache)
if(VELMAR_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${VELMAR_CCACHE})
endif()
# A faster linker when present.
include(CheckLinkerFlag)
check_linker_flag(CXX "-fuse-ld=lld" VELMAR_HAS_LLD)
if(VELMAR_HAS_LLD)
    add_link_options(-fuse-ld=lld)
endif()
