# What Windows wants to know of a program before it starts it: its icon, its version, and how it is
# to be treated (packaging/windows/program.manifest).
enable_language(RC)

function(norvik_add_resources target description)
    set(icon ${PROJECT_SOURCE_DIR}/packaging/windows/norvik.ico)
    set(manifest ${PROJECT_SOURCE_DIR}/packaging/windows/program.manifest)
    set(resources ${PROJECT_BINARY_DIR}/packaging/${target}.rc)
    configure_file(${PROJECT_SOURCE_DIR}/packaging/windows/program.rc.in ${resources} @ONLY)
    set_property(SOURCE ${resources} TARGET_DIRECTORY ${target}
                 APPEND PROPERTY OBJECT_DEPENDS ${icon} ${manifest})
    target_sources(${target} PRIVATE ${resources})
endfunction()
