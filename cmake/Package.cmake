# Installation rules and the Debian package that CPack builds from them (cpack -G DEB in the build folder).
include(GNUInstallDirs)
set(VANTRO_PRIVATE_LIBS "${CMAKE_INSTALL_LIBDIR}/vantro")
if(CMAKE_INSTALL_LIBDIR MATCHES "/")
  set(VANTRO_PRIVATE_LIBS "lib/vantro") # where the program searches, relative to its own folder
endif()

install(TARGETS vantro RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
if(NOT whisper_FOUND)
  # Private, so that another version in the system's folder does not conflict.
  set(libraries ggml ggml-base)
  get_property(cpu_variants DIRECTORY "${VANTRO_WHISPER_SOURCE}/ggml/src" PROPERTY BUILDSYSTEM_TARGETS)
  list(FILTER cpu_variants INCLUDE REGEX "^ggml-cpu(-[a-z0-9._]+)?$")
  foreach(library IN LISTS libraries cpu_variants)
    set_target_properties(${library} PROPERTIES INSTALL_RPATH "$ORIGIN")
    add_dependencies(vantro ${library})
  endforeach()
  install(TARGETS ${libraries} LIBRARY DESTINATION ${VANTRO_PRIVATE_LIBS} NAMELINK_SKIP)
  foreach(variant IN LISTS cpu_variants)
    install(TARGETS ${variant} LIBRARY DESTINATION ${VANTRO_PRIVATE_LIBS})
  endforeach()
endif()

set(packaging "${CMAKE_SOURCE_DIR}/packaging")
# KDE's compositor lets a program press keys and see windows if its desktop entry names it by its full path.
install(CODE "file(READ \"${packaging}/com.vantro.app.desktop\" entry)
  string(REGEX REPLACE \"(Exec=)vantro\" \"\\\\1\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/vantro\" entry \"\${entry}\")
  file(WRITE \"${CMAKE_BINARY_DIR}/packaging/com.vantro.app.desktop\" \"\${entry}\")")
install(FILES "${CMAKE_BINARY_DIR}/packaging/com.vantro.app.desktop" DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
# The session bus starts the program for "vantro toggle", by way of systemd where that runs the session. Both want its full
# path, which is known when it is installed.
foreach(name IN ITEMS com.vantro.app.service vantro.service)
  install(CODE "set(VANTRO_PROGRAM \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/vantro\")
    configure_file(\"${packaging}/${name}.in\" \"${CMAKE_BINARY_DIR}/packaging/${name}\" @ONLY)")
endforeach()
install(FILES "${CMAKE_BINARY_DIR}/packaging/com.vantro.app.service" DESTINATION ${CMAKE_INSTALL_DATADIR}/dbus-1/services)
install(FILES "${CMAKE_BINARY_DIR}/packaging/vantro.service" DESTINATION lib/systemd/user)
install(FILES "${packaging}/com.vantro.app.metainfo.xml" DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES "${packaging}/icons/com.vantro.app.svg" DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES "${packaging}/icons/com.vantro.app-symbolic.svg" "${packaging}/icons/com.vantro.app-recording-symbolic.svg"
  DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/symbolic/apps)
install(FILES "${packaging}/completions/vantro.bash" DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
  RENAME vantro)
install(FILES "${packaging}/completions/_vantro" DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)
install(FILES "${packaging}/completions/vantro.fish" DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
install(PROGRAMS "${CMAKE_SOURCE_DIR}/scripts/convert-ctc" DESTINATION ${CMAKE_INSTALL_DATADIR}/vantro)
install(FILES "${packaging}/sounds/Blow.wav" DESTINATION ${CMAKE_INSTALL_DATADIR}/vantro/sounds)

# Debian requires a compressed manual and changelog without a timestamp.
find_program(GZIP gzip REQUIRED)
set(compressed_folder "${CMAKE_BINARY_DIR}/packaging")
configure_file("${packaging}/debian/changelog.in" "${compressed_folder}/changelog.Debian" @ONLY)
function(vantro_install_compressed source name folder)
  set(compressed "${compressed_folder}/${name}.gz")
  add_custom_command(OUTPUT "${compressed}" COMMAND sh -c "\"${GZIP}\" -9nc \"${source}\" > \"${compressed}\""
    DEPENDS "${source}" VERBATIM)
  set_property(GLOBAL APPEND PROPERTY VANTRO_COMPRESSED "${compressed}")
  install(FILES "${compressed}" DESTINATION ${folder})
endfunction()
find_package(Python3 REQUIRED COMPONENTS Interpreter)
set(manual "${compressed_folder}/vantro.1")
add_custom_command(OUTPUT "${manual}"
  COMMAND sh -c "\"${Python3_EXECUTABLE}\" \"${packaging}/manual.py\" \"$<TARGET_FILE:vantro>\" \"${packaging}/vantro.1.in\" > \"${manual}\""
  DEPENDS vantro "${packaging}/manual.py" "${packaging}/vantro.1.in" VERBATIM)
vantro_install_compressed("${manual}" vantro.1 ${CMAKE_INSTALL_MANDIR}/man1)
vantro_install_compressed("${CMAKE_SOURCE_DIR}/CHANGELOG.md" changelog ${CMAKE_INSTALL_DATADIR}/doc/vantro)
vantro_install_compressed("${compressed_folder}/changelog.Debian" changelog.Debian ${CMAKE_INSTALL_DATADIR}/doc/vantro)
get_property(compressed_documents GLOBAL PROPERTY VANTRO_COMPRESSED)
add_custom_target(vantro_documents ALL DEPENDS ${compressed_documents})
install(FILES "${packaging}/debian/copyright" DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/vantro)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vantro)
set(CPACK_PACKAGE_VENDOR "The vantro makers")
set(CPACK_PACKAGE_CONTACT "The vantro makers <${VANTRO_SUPPORT_ADDRESS}>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "dictate into any window")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
# Loaded at run time, so dpkg-shlibdeps does not find them.
set(CPACK_DEBIAN_PACKAGE_DEPENDS
  "libqt6sql6-sqlite, libqt6svg6, qt6-wayland, qml6-module-qtquick, qml6-module-qtquick-window, qml6-module-qtquick-layouts, qml6-module-qtquick-templates, qml6-module-qtqml-workerscript")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils, pulseaudio | pipewire-pulse, gnome-keyring | kwalletmanager | keepassxc")
set(CPACK_PACKAGE_DESCRIPTION
"Press a shortcut, speak, press Space: the text appears in the window you were
working in. Speech is recognised on this computer, with a model that is
downloaded once.
.
The clipboard is restored afterwards, and dictations are kept in a local
history.")
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS OFF)
include(CPack)
