# VELMAR_SANITIZE=address,undefined builds every target with those sanitizers.
if(VELMAR_SANITIZE)
    add_compile_options(-fsanitize=${VELMAR_SANITIZE} -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${VELMAR_SANITIZE})
endif()
