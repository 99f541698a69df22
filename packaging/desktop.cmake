# How desktops and shells get to know krroutes and krrender.

# kr_install_manual(<program> <component>)
function(kr_install_manual program component)
    set(page "${CMAKE_CURRENT_BINARY_DIR}/${program}.1")
    configure_file("man/${program}.1.in" "${page}" @ONLY)
    install(FILES "${page}" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT ${component})
endfunction()
kr_install_manual(krrender Tools)
kr_install_manual(krroutes Desktop)

install(FILES completion/krrender.bash
    DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions" RENAME krrender COMPONENT Tools)

# The name without suffix is the desktop's name of the program; main.cpp tells it to the window system.
set(desktopId de.krgeolocation.krroutes)
configure_file("desktop/${desktopId}.metainfo.xml.in" "${CMAKE_CURRENT_BINARY_DIR}/${desktopId}.metainfo.xml" @ONLY)
install(FILES "desktop/${desktopId}.desktop"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/applications" COMPONENT Desktop)
install(FILES "desktop/${desktopId}.xml"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/mime/packages" COMPONENT Desktop)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/${desktopId}.metainfo.xml"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo" COMPONENT Desktop)
install(FILES "${PROJECT_SOURCE_DIR}/data/icons/viewer/krroutes.svg"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps" RENAME "${desktopId}.svg" COMPONENT Desktop)
