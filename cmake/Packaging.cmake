# What installs beside the program, and the Debian package: cpack -G DEB in a release build.
# The program finds its web module at ../lib/layoutsmith from its own folder.
set(name com.quillbyte.layoutsmith)
install(FILES packaging/${name}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/${name}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES resources/images/AppIcon.svg RENAME ${name}.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)

find_program(GZIP gzip REQUIRED)
set(manual ${CMAKE_BINARY_DIR}/layoutsmith.1.gz)
add_custom_command(OUTPUT ${manual} DEPENDS docs/layoutsmith.1
    COMMAND ${GZIP} -9nc ${CMAKE_SOURCE_DIR}/docs/layoutsmith.1 > ${manual})
add_custom_target(manual ALL DEPENDS ${manual})
install(FILES ${manual} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME layoutsmith)
set(CPACK_PACKAGE_CONTACT "Quillbyte <support@layoutsmith.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY ${PROJECT_DESCRIPTION})
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "Writes, checks and previews the HTML designs that an auction lister fills with listings: a code
 editor with placeholders, a live preview, generated samples, properties and keywords.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION editors)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The image plug-in for SVG comes with the library of that name, which the program links.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "dbus, fonts-dejavu-core, fonts-noto-color-emoji, qt6-wayland")
include(CPack)
