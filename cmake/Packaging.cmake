# `cpack -G DEB` in the build folder makes a Debian package of the installed tree (prefix /usr).
# dpkg-shlibdeps finds the Qt 6 runtime packages the program links to; the page text font
# (Liberation) is named here.
set(CPACK_PACKAGE_NAME zantor)
set(CPACK_PACKAGE_VENDOR Brovik)
set(CPACK_PACKAGE_CONTACT "Brovik, Zantor developers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY
    "Print PADS PowerPCB decal and parttype libraries as drawing sheets")
set(CPACK_PACKAGE_DESCRIPTION
    "Zantor prints footprint (decal) and parttype libraries kept in PADS PowerPCB ASCII files as\n\
drawing sheets: decal pages, index pages and parttype pages, to the system printer, to PDF,\n\
SVG and PNG files and to an on-screen preview. The command line prints without a display.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION electronics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-liberation")
include(CPack)
