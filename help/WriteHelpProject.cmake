# cmake -D SOURCE=help -D IMAGES=build/help -D OUTPUT=project -P help/WriteHelpProject.cmake
# Lays out the project that a compiler for HTML Help makes Ravlin.chm of: the topics as they are, and a project file, a tree
# of contents and an index made of contents.txt and of the titles and keywords in the topics.

# Sets title and keywords (a list) of a topic.
function(read_topic id)
    file(READ ${SOURCE}/${id}.html html)
    if(NOT html MATCHES "<title>([^<&]+)</title>")
        message(FATAL_ERROR "${id}.html: no title, or one with an entity, which contents and index do not take")
    endif()
    set(title "${CMAKE_MATCH_1}" PARENT_SCOPE)
    if(NOT html MATCHES "<meta name=\"keywords\" content=\"([^\"&]+)\">")
        message(FATAL_ERROR "${id}.html: no keywords, or some with an entity, which contents and index do not take")
    endif()
    string(REGEX REPLACE "; +" ";" words "${CMAKE_MATCH_1}")
    set(keywords ${words} PARENT_SCOPE)
endfunction()

set(sitemap_head "<!DOCTYPE HTML PUBLIC \"-//IETF//DTD HTML//EN\">\n<html><head></head><body>\n")
set(font "<object type=\"text/site properties\"><param name=\"Font\" value=\"Segoe UI,9,0\"></object>\n")
function(param var name value)
    set(${var} "${${var}}<param name=\"${name}\" value=\"${value}\">" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE ${OUTPUT})
file(MAKE_DIRECTORY ${OUTPUT})
file(STRINGS ${SOURCE}/contents.txt lines REGEX "^ *[a-z]")
set(level -1)
set(contents "${sitemap_head}${font}")
set(files)
set(places) # keyword TAB title TAB file, one for each keyword of each topic
foreach(line IN LISTS lines)
    string(REGEX MATCH "^( *)(.+)$" line "${line}")
    set(id ${CMAKE_MATCH_2})
    string(LENGTH "${CMAKE_MATCH_1}" blanks)
    math(EXPR depth "${blanks} / 2")
    read_topic(${id})

    while(level LESS depth)
        string(APPEND contents "<ul>\n")
        math(EXPR level "${level} + 1")
    endwhile()
    while(level GREATER depth)
        string(APPEND contents "</ul>\n")
        math(EXPR level "${level} - 1")
    endwhile()
    set(entry)
    param(entry Name "${title}")
    param(entry Local "${id}.html")
    string(APPEND contents "<li><object type=\"text/sitemap\">${entry}</object>\n")

    list(APPEND files ${id}.html)
    foreach(keyword IN LISTS keywords)
        list(APPEND places "${keyword}\t${title}\t${id}.html")
    endforeach()
    file(COPY ${SOURCE}/${id}.html DESTINATION ${OUTPUT})
endforeach()
string(REPEAT "</ul>\n" ${level} open)
string(APPEND contents "${open}</ul>\n</body></html>\n")
file(WRITE ${OUTPUT}/Ravlin.hhc "${contents}")

# A keyword of several topics is one entry, and the viewer asks which of them is meant.
list(SORT places COMPARE NATURAL CASE INSENSITIVE)
set(index "${sitemap_head}${font}<ul>\n")
set(last "")
foreach(place IN LISTS places)
    string(REPLACE "\t" ";" place "${place}")
    list(GET place 0 keyword)
    list(GET place 1 title)
    list(GET place 2 file)
    string(TOLOWER "${keyword}" key)
    if(NOT key STREQUAL last)
        if(last)
            string(APPEND index "</object>\n")
        endif()
        set(entry)
        param(entry Name "${keyword}")
        string(APPEND index "<li><object type=\"text/sitemap\">${entry}")
        set(last "${key}")
    endif()
    set(entry)
    param(entry Name "${title}")
    param(entry Local "${file}")
    string(APPEND index "${entry}")
endforeach()
string(APPEND index "</object>\n</ul>\n</body></html>\n")
file(WRITE ${OUTPUT}/Ravlin.hhk "${index}")

# The topics leave colours and the font to whatever shows them.
file(READ ${SOURCE}/help.css style)
file(READ ${SOURCE}/html-help.css added)
file(WRITE ${OUTPUT}/help.css "${style}\n${added}")
file(GLOB images RELATIVE ${IMAGES} ${IMAGES}/images/*.png)
list(FILTER images EXCLUDE REGEX "@") # the viewer knows no densities
list(TRANSFORM images PREPEND ${IMAGES}/ OUTPUT_VARIABLE pictures)
file(COPY ${pictures} DESTINATION ${OUTPUT}/images)
file(COPY ${SOURCE}/whatsthishelptopics.txt DESTINATION ${OUTPUT})
list(APPEND files help.css whatsthishelptopics.txt ${images})
list(JOIN files "\n" files)

# Window: three panes, tabs with contents, index and search (0x60520: the contents follow the topic, the user's size and
# place are kept), buttons for hide, back, forward, home, print and options (0x304E); 270 pixels for contents and index.
file(WRITE ${OUTPUT}/Ravlin.hhp "[OPTIONS]
Binary Index=No
Binary TOC=No
Compatibility=1.1 or later
Compiled file=Ravlin.chm
Contents file=Ravlin.hhc
Index file=Ravlin.hhk
Default topic=welcome.html
Default window=main
Full-text search=Yes
Language=0x0809 English (United Kingdom)
Title=Ravlin Help

[WINDOWS]
main=\"Ravlin Help\",\"Ravlin.hhc\",\"Ravlin.hhk\",\"welcome.html\",\"welcome.html\",,,,,0x60520,270,0x304E,[100,80,1080,800],0x10CF0000,,,,,,0

[FILES]
${files}
")
