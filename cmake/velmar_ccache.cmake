# Use ccache for every compile when it is installed; the fixed build directory of the Python
# build keeps the cache hits across rebuilds. The sloppiness settings and -fpch-preprocess
# let ccache cache translation units that use the precompiled headers. Paths are hashed
# relative to the source tree, so clones and work trees at other paths share the cache.
find_program(VELMAR_CCACHE ccache)
if(VELMAR_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
        "CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime"
        "CCACHE_BASEDIR=${PROJECT_SOURCE_DIR}" "CCACHE_NOHASHDIR=true" ${VELMAR_CCACHE})
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
