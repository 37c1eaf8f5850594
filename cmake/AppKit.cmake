# AppKit, as Apple has it or as GNUstep does: the targets `appkit` to compile with and `appkit_libraries` to link with, and the
# windows of a plug-in made of it.

if(NOT APPLE) # GNUstep's headers are for the compiler that its libraries were built with
    set(CMAKE_OBJC_COMPILER ${CMAKE_C_COMPILER})
    set(CMAKE_OBJCXX_COMPILER ${CMAKE_CXX_COMPILER})
endif()
enable_language(OBJC)
enable_language(OBJCXX)
add_library(appkit INTERFACE)
add_library(appkit_libraries INTERFACE)
if(APPLE)
    target_link_libraries(appkit_libraries INTERFACE "-framework AppKit")
else()
    # What GNUstep's own tool tells, without its warnings, its optimisation and its own folders.
    target_compile_definitions(appkit INTERFACE
        GNUSTEP GNUSTEP_BASE_LIBRARY=1 GNU_GUI_LIBRARY=1 GNU_RUNTIME=1 _NATIVE_OBJC_EXCEPTIONS)
    target_compile_options(appkit INTERFACE -fobjc-exceptions -fexceptions -fconstant-string-class=NSConstantString
        -fno-strict-aliasing -pthread $<$<COMPILE_LANGUAGE:OBJCXX>:-fobjc-call-cxx-cdtors>)
    target_include_directories(appkit SYSTEM INTERFACE /usr/include/GNUstep)
    target_link_libraries(appkit_libraries INTERFACE gnustep-gui gnustep-base objc)
endif()

# Compiles the windows anew for the plug-in: all bundles in a process share one table of Objective-C classes, so each has
# names of its own.
function(kzo_add_windows plugin)
    set(folder ${Ortholine_SOURCE_DIR}/src/plugin/platform/cocoa)
    file(GLOB sources CONFIGURE_DEPENDS ${folder}/*.mm ${folder}/*.m)
    string(REGEX REPLACE "[^A-Za-z0-9]" "_" prefix ${plugin})
    add_library(${plugin}_windows OBJECT ${sources})
    target_link_libraries(${plugin}_windows PRIVATE project_flags appkit plugin_platform_root plugin_host_root
        plugin_values_root core_values_root hostapi_root utils_root geo_root)
    target_compile_definitions(${plugin}_windows PRIVATE KZO_CLASS_PREFIX=${prefix})
    target_compile_options(${plugin}_windows PRIVATE -Wno-unused-parameter
        $<$<COMPILE_LANGUAGE:OBJCXX>:-std=c++20>) # which the compile features leave out
    set_target_properties(${plugin}_windows PROPERTIES
        OBJC_VISIBILITY_PRESET hidden OBJCXX_VISIBILITY_PRESET hidden)
    target_sources(${plugin} PRIVATE $<TARGET_OBJECTS:${plugin}_windows>)
    target_link_libraries(${plugin} PRIVATE appkit_libraries)
endfunction()
