# The host's own SDK, under the target names the plug-in links. Its library folder differs by platform.
find_package(OpenGL REQUIRED)
foreach(library Foundation OpenMaya OpenMayaAnim OpenMayaUI OpenMayaRender)
    find_library(MAYA_${library}_LIBRARY ${library} PATHS ${MAYA_DEVKIT_ROOT}/lib ${MAYA_DEVKIT_ROOT}/MacOS
        NO_DEFAULT_PATH REQUIRED)
    add_library(maya_${library} INTERFACE)
    target_include_directories(maya_${library} SYSTEM INTERFACE ${MAYA_DEVKIT_ROOT}/include)
    target_link_libraries(maya_${library} INTERFACE ${MAYA_${library}_LIBRARY} OpenGL::GL)
    target_compile_definitions(maya_${library} INTERFACE REQUIRE_IOSTREAM _BOOL
        $<$<PLATFORM_ID:Windows>:NT_PLUGIN> $<$<PLATFORM_ID:Linux>:LINUX> $<$<PLATFORM_ID:Linux>:LINUX_64>
        $<$<PLATFORM_ID:Darwin>:MAC_PLUGIN> $<$<PLATFORM_ID:Darwin>:OSMac_> $<$<PLATFORM_ID:Darwin>:OSMac_MachO>)
    add_library(Maya::${library} ALIAS maya_${library})
endforeach()
