# Use ccache for every compile when it is installed; the fixed build directory of the Python
# build keeps the cache hits across rebuilds. The sloppiness settings and -fpch-preprocess
# let ccache cache translation units that use the precompiled headers. Paths stay absolute in
# the hash: a precompiled header names its headers by absolute path, so a hit from a tree at
# another path would include that tree's headers.
find_program(VELMAR_CCACHE ccache)
if(VELMAR_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
        "CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime" ${VELMAR_CCACHE})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        add_compile_options(-fpch-preprocess)
    endif()
endif()
# A faster linker when present.
include(CheckLinkerFlag)
check_linker_flag(CXX "-fuse-ld=lld" VELMAR_HAS_LLD)
if(VELMAR_HAS_LLD)
    add_link_options(-fuse-ld=lld)
endif()
