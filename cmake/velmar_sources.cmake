# velmar_add_library(NAME DIR...): a static, position-independent library made of
# every .cpp below the given directories.
function(velmar_collect_sources out)
    set(files "")
    foreach(dir IN LISTS ARGN)
        file(GLOB_RECURSE found CONFIGURE_DEPENDS ${dir}/*.cpp)
        list(APPEND files ${found})
    endforeach()
    set(${out} ${files} PARENT_SCOPE)
endfunction()

function(velmar_add_library name)
    velmar_collect_sources(sources ${ARGN})
    if(NOT sources)
        # A library whose sources are still to come builds as an empty archive.
        set(sources ${CMAKE_CURRENT_BINARY_DIR}/${name}_empty.cpp)
        file(WRITE ${sources} "")
    endif()
    add_library(${name} STATIC ${sources})
    target_link_libraries(${name} PRIVATE velmar_warnings)
    set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX)
endfunction()
