# `cpack -G DEB` (or the `package` target) builds a Debian package of everything
# installed. Its library dependencies come from dpkg-shlibdeps; the Qt platform
# plugins are loaded at run time, so shlibdeps cannot see them and they are named
# here.
set(CPACK_PACKAGE_NAME quintline)
set(CPACK_PACKAGE_VENDOR "The Quintline developers")
set(CPACK_PACKAGE_CONTACT "The Quintline developers <quintline@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "play and study gomoku on a 15 by 15 board")
set(CPACK_PACKAGE_DESCRIPTION
  "Quintline plays gomoku: a person against one of two computer players, the two computers\n\
against each other, or two people on one board. The computers differ only in their static\n\
evaluation; each has a plain search and a search that models the other. quintline-batch\n\
runs batches of games between them on all cores.")
set(CPACK_PACKAGE_HOMEPAGE_URL "https://example.org/quintline")
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION games)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
if(QUINTLINE_WITH_GUI)
  set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins, fonts-dejavu-core")
  # The windows' condensed face; without it they fall back to DejaVu Sans.
  set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-dejavu-extra")
endif()
include(CPack)
