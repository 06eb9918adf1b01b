# Where things lie when installed: the programs with all that they find beside them in lib/kelu, a link to each in bin,
# and what a desktop needs to offer the program for a picture.
include(GNUInstallDirs)

set(kelu_home "${CMAKE_INSTALL_LIBDIR}/kelu")
set(kelu_built "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
install(TARGETS kelu kelu-cli RUNTIME DESTINATION "${kelu_home}")
install(DIRECTORY "${kelu_built}/data" "${kelu_built}/help" DESTINATION "${kelu_home}")
install(DIRECTORY "${PROJECT_SOURCE_DIR}/Gallery" DESTINATION "${kelu_home}")
install(FILES "${PROJECT_SOURCE_DIR}/app/kelu.desktop" DESTINATION "${CMAKE_INSTALL_DATADIR}/applications")
install(FILES "${PROJECT_SOURCE_DIR}/controls/theme/icons/kelu.svg"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps")

# Relative, so that the tree may be moved, or installed below DESTDIR.
file(RELATIVE_PATH kelu_from_bin "/${CMAKE_INSTALL_BINDIR}" "/${kelu_home}")
install(CODE "
  set(folder \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")
  file(MAKE_DIRECTORY \"\${folder}\")
  foreach(program kelu kelu-cli)
    file(CREATE_LINK \"${kelu_from_bin}/\${program}\" \"\${folder}/\${program}\" SYMBOLIC)
  endforeach()")
