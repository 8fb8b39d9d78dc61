add_library(velmar_warnings INTERFACE)
target_compile_options(velmar_warnings INTERFACE -Wall -Wextra -Wnon-virtual-dtor -Woverloaded-virtual)
# g++ 12 reports out-of-bounds copies inside std::variant<..., std::string> at -O2 that do
# not exist (a known false positive of that compiler); keep the build output readable.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(velmar_warnings INTERFACE -Wno-array-bounds -Wno-stringop-overflow -Wno-stringop-overread)
endif()
if(VELMAR_WERROR)
    target_compile_options(velmar_warnings INTERFACE -Werror)
endif()
