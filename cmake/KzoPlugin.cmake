# kzo_add_plugin(NAME name [SOURCES files...] [CODE targets...] [RESOURCES files...] [VERSION n.n.n] [IDENTIFIER text]
#                [PLIST file] [WINDOWS]): a plug-in bundle NAME.aip on the framework, in the calling project's build folder.
#
# SOURCES and RESOURCES are paths from the calling CMakeLists.txt; CODE names object or interface libraries compiled
# elsewhere; of SOURCES and CODE there must be one. A resource that is an SVG drawing is shipped as PNG in normal and double
# resolution, any other file as it is. VERSION is the calling project's, else 1.0.0; IDENTIFIER is reverse-domain; PLIST is a
# template for configure_file in place of cmake/Plugin.plist.in, with the same @PLUGIN_...@ variables.
#
# With WINDOWS, where the project was configured with KZO_APPKIT, the plug-in shows its dialogs in windows of its own in a host
# that shows none.
#
# The library exports the entry alone, and a symbol that nobody defines stops the link, not the host. The author's
# warnings stay the author's business.

function(kzo_add_plugin)
    cmake_parse_arguments(PARSE_ARGV 0 ARG "WINDOWS" "NAME;VERSION;IDENTIFIER;PLIST" "SOURCES;CODE;RESOURCES")
    kzo_check_plugin_arguments()
    if(NOT ARG_VERSION)
        set(ARG_VERSION ${PROJECT_VERSION})
    endif()
    if(NOT ARG_VERSION)
        set(ARG_VERSION 1.0.0)
    endif()
    if(NOT ARG_IDENTIFIER)
        string(REGEX REPLACE "[^A-Za-z0-9-]" "-" ARG_IDENTIFIER "${ARG_NAME}")
        set(ARG_IDENTIFIER plugin.${ARG_IDENTIFIER})
    endif()
    if(NOT ARG_PLIST)
        set(ARG_PLIST ${Ortholine_SOURCE_DIR}/cmake/Plugin.plist.in)
    endif()

    set(contents ${CMAKE_BINARY_DIR}/${ARG_NAME}.aip/Contents)
    set(exports ${Ortholine_SOURCE_DIR}/cmake/entry.map)
    add_library(${ARG_NAME} MODULE ${ARG_SOURCES})
    target_compile_features(${ARG_NAME} PRIVATE cxx_std_20)
    target_link_libraries(${ARG_NAME} PRIVATE kzo ${ARG_CODE} core_root)
    target_link_options(${ARG_NAME} PRIVATE -Wl,--version-script=${exports} -Wl,-z,defs)
    set_target_properties(${ARG_NAME} PROPERTIES
        PREFIX "" SUFFIX "" LIBRARY_OUTPUT_DIRECTORY ${contents}/Linux LINK_DEPENDS ${exports}
        CXX_EXTENSIONS OFF CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)

    if(ARG_WINDOWS)
        kzo_add_windows(${ARG_NAME})
    endif()

    set(PLUGIN_NAME ${ARG_NAME})
    set(PLUGIN_VERSION ${ARG_VERSION})
    set(PLUGIN_IDENTIFIER ${ARG_IDENTIFIER})
    configure_file(${ARG_PLIST} ${contents}/Info.plist @ONLY)
    kzo_add_resources(${ARG_NAME} ${contents}/Resources "${ARG_RESOURCES}")
endfunction()

# What is wrong with the arguments of kzo_add_plugin, said where it was called.
function(kzo_check_plugin_arguments)
    if(ARG_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "kzo_add_plugin: unknown argument \"${ARG_UNPARSED_ARGUMENTS}\"")
    endif()
    if(ARG_KEYWORDS_MISSING_VALUES)
        message(FATAL_ERROR "kzo_add_plugin: ${ARG_KEYWORDS_MISSING_VALUES} stands without a value")
    endif()
    if(NOT "${ARG_NAME}" MATCHES "^[A-Za-z][A-Za-z0-9_-]*$")
        message(FATAL_ERROR "kzo_add_plugin: NAME \"${ARG_NAME}\" is no name: a letter, then letters, digits, _ and -")
    endif()
    if(NOT ARG_SOURCES AND NOT ARG_CODE)
        message(FATAL_ERROR "kzo_add_plugin: ${ARG_NAME} has neither SOURCES nor CODE")
    endif()
    if(ARG_VERSION AND NOT "${ARG_VERSION}" MATCHES "^[0-9]+(\\.[0-9]+)?(\\.[0-9]+)?$")
        message(FATAL_ERROR "kzo_add_plugin: VERSION \"${ARG_VERSION}\" of ${ARG_NAME} is not one to three numbers")
    endif()
    if(ARG_IDENTIFIER AND NOT "${ARG_IDENTIFIER}" MATCHES "^[A-Za-z0-9-]+(\\.[A-Za-z0-9-]+)+$")
        message(FATAL_ERROR "kzo_add_plugin: IDENTIFIER \"${ARG_IDENTIFIER}\" of ${ARG_NAME} is not like com.maker.product")
    endif()
    if(ARG_WINDOWS AND NOT TARGET appkit)
        message(FATAL_ERROR "kzo_add_plugin: ${ARG_NAME} has WINDOWS, which needs -DKZO_APPKIT=ON")
    endif()
    foreach(file ${ARG_SOURCES} ${ARG_RESOURCES} ${ARG_PLIST})
        get_filename_component(path ${file} ABSOLUTE)
        if(NOT EXISTS ${path} AND NOT "${file}" MATCHES "^\\$<")
            message(FATAL_ERROR "kzo_add_plugin: ${ARG_NAME} names ${file}, which is not there")
        endif()
    endforeach()
endfunction()

# Puts the files into the bundle's folder of resources, icons drawn as SVG as PNG in two resolutions.
function(kzo_add_resources name folder resources)
    foreach(resource ${resources})
        get_filename_component(path ${resource} ABSOLUTE)
        get_filename_component(stem ${path} NAME_WE)
        get_filename_component(file ${path} NAME)
        if(NOT "${file}" MATCHES "\\.svg$")
            add_custom_command(OUTPUT ${folder}/${file}
                COMMAND ${CMAKE_COMMAND} -E copy ${path} ${folder}/${file} DEPENDS ${path} VERBATIM)
            list(APPEND made ${folder}/${file})
            continue()
        endif()
        find_program(RSVG_CONVERT rsvg-convert REQUIRED)
        foreach(scale 1 2)
            set(png ${folder}/${stem}.png)
            if(scale EQUAL 2)
                set(png ${folder}/${stem}@2x.png)
            endif()
            add_custom_command(OUTPUT ${png}
                COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}
                COMMAND ${RSVG_CONVERT} --zoom=${scale} --output=${png} ${path}
                DEPENDS ${path} VERBATIM)
            list(APPEND made ${png})
        endforeach()
    endforeach()
    add_custom_target(${name}_resources DEPENDS ${made})
    add_dependencies(${name} ${name}_resources)
endfunction()
