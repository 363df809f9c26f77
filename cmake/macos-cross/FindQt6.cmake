# The headers and the tools (moc, rcc, the QML compiler) come from the distribution's Qt. Its libraries are not for a Mac,
# so each is replaced by an empty one, and its symbols stay undefined.
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
        # Used if no build type is chosen.
        set_target_properties(Qt6::${module} PROPERTIES IMPORTED_LOCATION ${empty})
    endif()
endforeach()
# It links a framework that newer SDKs lack; we need not link what Qt uses of OpenGL.
if(TARGET WrapOpenGL::WrapOpenGL)
    set_target_properties(WrapOpenGL::WrapOpenGL PROPERTIES INTERFACE_LINK_LIBRARIES "")
endif()
