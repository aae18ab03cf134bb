# ravlin_windows_program(NAME DESCRIPTION RIGHTS [ICON]): gives a program its manifest and version and, with ICON, Ravlin's
# icon, and strips it. RIGHTS is what it asks the system for: asInvoker or highestAvailable.
enable_language(RC)
find_program(ICOTOOL icotool NO_CMAKE_FIND_ROOT_PATH DOC "Makes icons of PNG files (package icoutils on Debian)")

function(ravlin_windows_program name description rights)
    set(manifest ${CMAKE_CURRENT_BINARY_DIR}/${name}.manifest)
    set(icon)
    if("ICON" IN_LIST ARGN)
        set(file ${PROJECT_BINARY_DIR}/resources/icons/ravlin.ico)
        set(icon "1 ICON \"${file}\"")
        add_dependencies(${name} ravlin_icon)
        set_property(SOURCE ${CMAKE_CURRENT_BINARY_DIR}/${name}.rc PROPERTY OBJECT_DEPENDS ${file})
    endif()
    configure_file(${PROJECT_SOURCE_DIR}/resources/windows/ravlin.manifest ${manifest} @ONLY)
    configure_file(${PROJECT_SOURCE_DIR}/resources/windows/program.rc.in ${name}.rc @ONLY)
    target_sources(${name} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${name}.rc)
    target_link_options(${name} PRIVATE -s)
endfunction()
