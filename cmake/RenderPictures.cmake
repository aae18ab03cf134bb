# rsvg-convert runs while building, so a cross build takes the one of the building machine, never one of its target.
find_program(RSVG_CONVERT rsvg-convert REQUIRED NO_CMAKE_FIND_ROOT_PATH
    DOC "Renders the SVG pictures (package librsvg2-bin on Debian)")

# ravlin_render_densities(VAR SVG WIDTH HEIGHT NAME): renders SVG to NAME.png of WIDTH x HEIGHT pixels and to NAME@2x.png
# and NAME@3x.png for screens of a higher density, below the binary directory, and appends the three to the list VAR.
function(ravlin_render_densities var svg width height name)
    set(pngs)
    set(commands)
    foreach(density 1 2 3)
        set(suffix "")
        if(density GREATER 1)
            set(suffix "@${density}x")
        endif()
        set(png ${CMAKE_CURRENT_BINARY_DIR}/${name}${suffix}.png)
        math(EXPR w "${width} * ${density}")
        math(EXPR h "${height} * ${density}")
        list(APPEND pngs ${png})
        list(APPEND commands COMMAND ${RSVG_CONVERT} --width ${w} --height ${h} --output ${png}
            ${CMAKE_CURRENT_SOURCE_DIR}/${svg})
    endforeach()
    ravlin_add_rendering("${svg}" "${pngs}" "${commands}")
    set(${var} ${${var}} ${pngs} PARENT_SCOPE)
endfunction()

# ravlin_render_sizes(VAR SVG NAME SIZE...): renders the square SVG to NAME-SIZE.png for each of the sizes.
function(ravlin_render_sizes var svg name)
    set(pngs)
    set(commands)
    foreach(size IN LISTS ARGN)
        set(png ${CMAKE_CURRENT_BINARY_DIR}/${name}-${size}.png)
        list(APPEND pngs ${png})
        list(APPEND commands COMMAND ${RSVG_CONVERT} --width ${size} --height ${size} --output ${png}
            ${CMAKE_CURRENT_SOURCE_DIR}/${svg})
    endforeach()
    ravlin_add_rendering("${svg}" "${pngs}" "${commands}")
    set(${var} ${${var}} ${pngs} PARENT_SCOPE)
endfunction()

# One rule for all renderings of a picture: it is drawn once and read once.
function(ravlin_add_rendering svg pngs commands)
    list(GET pngs 0 first)
    cmake_path(GET first PARENT_PATH directory)
    file(MAKE_DIRECTORY ${directory})
    add_custom_command(OUTPUT ${pngs} ${commands} DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${svg}
        COMMENT "Rendering ${svg}" VERBATIM)
endfunction()
