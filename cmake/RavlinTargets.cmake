# One static library per folder of src/. The link graph is the architecture: a folder names the folders it stands on,
# and nothing below links what stands above.

add_library(ravlin_options INTERFACE)
target_include_directories(ravlin_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_options(ravlin_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wold-style-cast -Woverloaded-virtual -Wnon-virtual-dtor -Werror)
if(WIN32)
    target_compile_definitions(ravlin_options INTERFACE NOMINMAX UNICODE _UNICODE WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0A00)
endif()
if(RAVLIN_SANITIZE)
    target_compile_options(ravlin_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(ravlin_options INTERFACE -fsanitize=address,undefined)
endif()
if(RAVLIN_FUZZERS)
    target_compile_options(ravlin_options INTERFACE -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
    target_link_options(ravlin_options INTERFACE -fsanitize=address,undefined)
endif()

# ravlin_library(NAME [QT] SOURCES ... LINKS ...): a folder's library. QT gives it moc and uic; without it the folder is
# plain C++ and cannot reach Qt.
function(ravlin_library name)
    cmake_parse_arguments(ARG "QT" "" "SOURCES;LINKS" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_link_libraries(${name} PUBLIC ravlin_options ${ARG_LINKS})
    if(ARG_QT)
        set_target_properties(${name} PROPERTIES AUTOMOC ON AUTOUIC ON AUTOUIC_OPTIONS --no-autoconnection)
    endif()
endfunction()

# ravlin_program(NAME [QT] SOURCES ... LINKS ...): a program, built into bin/.
function(ravlin_program name)
    cmake_parse_arguments(ARG "QT" "" "SOURCES;LINKS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE ravlin_options ${ARG_LINKS})
    if(ARG_QT)
        set_target_properties(${name} PROPERTIES AUTOMOC ON AUTOUIC ON AUTOUIC_OPTIONS --no-autoconnection)
    endif()
endfunction()
