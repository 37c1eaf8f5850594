# How the folders become layers, and what may include what. A layer's headers are reachable only through its own
# include root (a folder of links in the build tree), so an include across a forbidden wall finds no file.

add_library(project_flags INTERFACE)
target_compile_features(project_flags INTERFACE cxx_std_20)
target_compile_options(project_flags INTERFACE -Wall -Wextra -Wpedantic -Wshadow)
# In somebody else's project a compiler that we do not know yet must not stop their build.
if(PROJECT_IS_TOP_LEVEL)
    target_compile_options(project_flags INTERFACE -Werror)
endif()
# g++ 12 sees overruns in std::string's own operator+, depending on how long a literal is; the sanitizer run finds real ones.
target_compile_options(project_flags INTERFACE
    $<$<CXX_COMPILER_ID:GNU>:-Wno-array-bounds;-Wno-restrict;-Wno-stringop-overflow>)

# layer_include_root(NAME PREFIX DIR [HEADERS...]): the include root `NAME_root`, in which DIR (or just HEADERS of it) is
# reachable as "PREFIX/...".
function(layer_include_root name prefix dir)
    set(root ${Ortholine_BINARY_DIR}/roots/${name})
    if(ARGN)
        file(REMOVE_RECURSE ${root})
        foreach(header ${ARGN})
            get_filename_component(folder ${root}/${prefix}/${header} DIRECTORY)
            file(MAKE_DIRECTORY ${folder})
            file(CREATE_LINK ${Ortholine_SOURCE_DIR}/${dir}/${header} ${root}/${prefix}/${header} SYMBOLIC)
        endforeach()
    else()
        get_filename_component(folder ${root}/${prefix} DIRECTORY)
        file(MAKE_DIRECTORY ${folder})
        file(CREATE_LINK ${Ortholine_SOURCE_DIR}/${dir} ${root}/${prefix} SYMBOLIC)
    endif()
    add_library(${name}_root INTERFACE)
    target_include_directories(${name}_root INTERFACE ${root})
endfunction()

# layer_group(NAME names...): several layers under one name, for those who may know all of them: their include roots as
# `NAME_root`, their objects as `NAME`.
function(layer_group name)
    add_library(${name}_root INTERFACE)
    add_library(${name} INTERFACE)
    foreach(member ${ARGN})
        target_link_libraries(${name}_root INTERFACE ${member}_root)
        if(TARGET ${member})
            target_sources(${name} INTERFACE $<TARGET_OBJECTS:${member}>)
        endif()
    endforeach()
endfunction()

# layer(NAME DIR DEPENDS names... LIBRARIES targets... HEADERS_DEPEND names...): the object library of one folder. It sees
# its own headers, those of the layers it depends on, and the named libraries; nothing passes on. Where its headers may
# know less than its sources, HEADERS_DEPEND says what.
function(layer name dir)
    cmake_parse_arguments(ARG "" "" "DEPENDS;LIBRARIES;HEADERS_DEPEND" ${ARGN})
    if(NOT ARG_HEADERS_DEPEND)
        set(ARG_HEADERS_DEPEND ${ARG_DEPENDS})
    endif()
    # "src/core/values" is included as "core/values/...", "easel/svg" as "svg/..."
    string(REGEX REPLACE "^[^/]+/(.+)$" "\\1" prefix ${dir})
    if(NOT TARGET ${name}_root)
        layer_include_root(${name} ${prefix} ${dir})
    endif()
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${Ortholine_SOURCE_DIR}/${dir}/*.cpp)
    file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE ${Ortholine_SOURCE_DIR}/${dir} ${Ortholine_SOURCE_DIR}/${dir}/*.h)
    set(roots ${name}_root)
    foreach(known ${ARG_DEPENDS})
        list(APPEND roots ${known}_root)
    endforeach()
    if(sources)
        add_library(${name} OBJECT ${sources})
        target_link_libraries(${name} PRIVATE project_flags ${roots} ${ARG_LIBRARIES})
    endif()
    # Objective-C++, which only some plug-ins are compiled with, checks its own.
    list(FILTER headers EXCLUDE REGEX "cocoa/")
    if(HOUSE_CHECK_HEADERS AND headers)
        set(header_roots ${name}_root)
        foreach(known ${ARG_HEADERS_DEPEND})
            list(APPEND header_roots ${known}_root)
        endforeach()
        layer_check_headers(${name} ${prefix} "${headers}" "${header_roots};${ARG_LIBRARIES}")
    endif()
endfunction()

# Compiles every header alone, with exactly what its layer may see.
function(layer_check_headers name prefix headers uses)
    foreach(header ${headers})
        string(REPLACE "/" "_" stem ${prefix}/${header})
        set(unit ${Ortholine_BINARY_DIR}/headers/${stem}.cpp)
        file(CONFIGURE OUTPUT ${unit} CONTENT "#include \"${prefix}/${header}\" // IWYU pragma: keep\n")
        list(APPEND units ${unit})
    endforeach()
    add_library(${name}_headers OBJECT ${units})
    target_link_libraries(${name}_headers PRIVATE project_flags ${uses})
    target_compile_options(${name}_headers PRIVATE -O0 -g0)
endfunction()
