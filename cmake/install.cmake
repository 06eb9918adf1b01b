# Where things lie when installed: the programs with all that they find beside them in lib/kelu, a link to each in bin,
# see packaging/ for what a desktop needs.
include(GNUInstallDirs)

set(kelu_home "${CMAKE_INSTALL_LIBDIR}/kelu")
set(kelu_built "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
install(TARGETS kelu kelu-cli RUNTIME DESTINATION "${kelu_home}")
install(TARGETS kelu_heif kelu_jxl kelu_raw LIBRARY DESTINATION "${kelu_home}/codecs")
install(DIRECTORY "${kelu_built}/data" "${kelu_built}/help" DESTINATION "${kelu_home}")
install(DIRECTORY "${PROJECT_SOURCE_DIR}/Gallery" DESTINATION "${kelu_home}")

# Relative, so that the tree may be moved, or installed below DESTDIR.
file(RELATIVE_PATH kelu_from_bin "/${CMAKE_INSTALL_BINDIR}" "/${kelu_home}")
install(CODE "
  set(folder \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")
  file(MAKE_DIRECTORY \"\${folder}\")
  foreach(program kelu kelu-cli)
    file(CREATE_LINK \"${kelu_from_bin}/\${program}\" \"\${folder}/\${program}\" SYMBOLIC)
  endforeach()")
