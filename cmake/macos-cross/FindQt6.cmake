# The distribution's Qt: its headers and its tools (moc, rcc, the views' compiler) are the host's. Its libraries are
# not a Mac's, so an empty library stands for each, and what is called in them stays open in the link.
file(GLOB folder /usr/lib/*/cmake/Qt6)
if(NOT folder)
    message(FATAL_ERROR "Qt 6 is missing: scripts/setup macos installs it")
endif()
get_filename_component(packages ${folder} DIRECTORY)
set(QT_HOST_PATH /usr)
set(Qt6_DIR ${folder})
set(Qt6HostInfo_DIR ${packages}/Qt6HostInfo)
list(APPEND CMAKE_PREFIX_PATH ${packages})
# It would put /usr/include on the include path.
set(CMAKE_DISABLE_FIND_PACKAGE_WrapVulkanHeaders TRUE)
find_package(Qt6 ${Qt6_FIND_VERSION} CONFIG COMPONENTS ${Qt6_FIND_COMPONENTS})

set(empty ${CMAKE_BINARY_DIR}/distribution/Qt.tbd)
file(CONFIGURE OUTPUT ${empty} CONTENT [[
--- !tapi-tbd
tbd-version: 4
targets: [ arm64-macos, x86_64-macos ]
install-name: '@rpath/Qt'
...
]])
foreach(module IN ITEMS Core Gui Network DBus OpenGL Qml QmlModels Quick)
    if(TARGET Qt6::${module})
        get_target_property(configurations Qt6::${module} IMPORTED_CONFIGURATIONS)
        foreach(configuration IN LISTS configurations)
            set_target_properties(Qt6::${module} PROPERTIES IMPORTED_LOCATION_${configuration} ${empty})
        endforeach()
        # What counts when no build type is chosen.
        set_target_properties(Qt6::${module} PROPERTIES IMPORTED_LOCATION ${empty})
    endif()
endforeach()
# It names a framework that newer SDKs lack; what Qt calls of OpenGL is not ours to link.
if(TARGET WrapOpenGL::WrapOpenGL)
    set_target_properties(WrapOpenGL::WrapOpenGL PROPERTIES INTERFACE_LINK_LIBRARIES "")
endif()
