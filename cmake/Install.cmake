# Installing Amorra as a desktop game, and its Debian package (make package).
#
# Under the prefix (/usr in the package, /usr/local for make install):
#   games/amorra                   the game; it finds its files relative to itself
#   share/games/amorra/            what assets/files.txt lists: pictures, animations,
#                                  sounds, window icons, help, quick start guide
#   share/applications/            io.github.amorra.amorra.desktop
#   share/icons/hicolor/           amorra.png in 16..256, amorra.svg
#   share/metainfo/                io.github.amorra.amorra.metainfo.xml
#   share/man/man6/                amorra.6.gz
#   share/doc/amorra/              copyright, changelog.gz

set(AMORRA_APP_ID io.github.amorra.amorra)
set(amorra_packaging_src ${PROJECT_SOURCE_DIR}/packaging)
set(amorra_packaging_bin ${PROJECT_BINARY_DIR}/packaging)
set(amorra_assets_src ${PROJECT_SOURCE_DIR}/assets)
# Where Debian puts games and their static data; the game looks for its
# files at ../share/games/amorra from its own folder.
set(AMORRA_GAMES_DESTINATION games)
set(AMORRA_ASSETS_DESTINATION ${CMAKE_INSTALL_DATADIR}/games/amorra)
set(AMORRA_DOC_DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/amorra)

# Installed folders stay readable for everyone, whatever the umask of the
# one who builds the package.
set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

if(TARGET amorra-game)
  install(TARGETS amorra-game RUNTIME DESTINATION ${AMORRA_GAMES_DESTINATION})
  # A stripped install (the package) also loses the compiler's notes, as
  # Debian's dh_strip does.
  if(CMAKE_OBJCOPY)
    install(CODE "
      if(CMAKE_INSTALL_DO_STRIP)
        execute_process(COMMAND \"${CMAKE_OBJCOPY}\" --remove-section=.comment --remove-section=.note
          \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${AMORRA_GAMES_DESTINATION}/amorra\")
      endif()")
  endif()
endif()

# One list of the game's files, read here and by the tests.
set(amorra_file_list ${amorra_assets_src}/files.txt)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${amorra_file_list})
file(STRINGS ${amorra_file_list} amorra_files REGEX "^[^#]")
foreach(row IN LISTS amorra_files)
  string(REGEX MATCHALL "[^ \t]+" columns "${row}")
  list(GET columns 0 file)
  list(GET columns 1 kind)
  get_filename_component(dir "${file}" DIRECTORY)
  if(NOT kind STREQUAL "theme")
    install(FILES ${amorra_assets_src}/${file} DESTINATION ${AMORRA_ASSETS_DESTINATION}/${dir})
  endif()
  # Icon=amorra in the desktop entry: one PNG per theme size, and the SVG.
  if(kind MATCHES "^(icon|theme)$")
    if(file MATCHES "\\.svg$")
      install(FILES ${amorra_assets_src}/${file} RENAME amorra.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
    else()
      list(GET columns 2 size)
      install(FILES ${amorra_assets_src}/${file} RENAME amorra.png
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}/apps)
    endif()
  endif()
endforeach()

# The desktop entry starts the game by its full path, whichever prefix it is
# installed under: the games folder is not on every PATH (not on root's, nor
# ~/.local/games on anyone's).
install(CODE "
  file(READ \"${amorra_packaging_src}/${AMORRA_APP_ID}.desktop\" entry)
  string(REPLACE \"Exec=amorra\" \"Exec=\${CMAKE_INSTALL_PREFIX}/${AMORRA_GAMES_DESTINATION}/amorra\" entry \"\${entry}\")
  file(WRITE \"${amorra_packaging_bin}/installed/${AMORRA_APP_ID}.desktop\" \"\${entry}\")
  file(INSTALL DESTINATION \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_DATADIR}/applications\" TYPE FILE
    FILES \"${amorra_packaging_bin}/installed/${AMORRA_APP_ID}.desktop\")")
install(FILES ${amorra_packaging_src}/${AMORRA_APP_ID}.metainfo.xml
  DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${amorra_packaging_src}/copyright DESTINATION ${AMORRA_DOC_DESTINATION})
install(FILES ${amorra_packaging_src}/amorra.lintian-overrides RENAME amorra
  DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides)

# Debian ships man pages and changelogs compressed at the highest level;
# -n keeps time stamps out, so the same sources give the same package.
find_program(AMORRA_GZIP gzip REQUIRED)
file(MAKE_DIRECTORY ${amorra_packaging_bin})
foreach(doc amorra.6 changelog)
  add_custom_command(OUTPUT ${amorra_packaging_bin}/${doc}.gz
    COMMAND ${AMORRA_GZIP} -9nc ${amorra_packaging_src}/${doc} > ${amorra_packaging_bin}/${doc}.gz
    DEPENDS ${amorra_packaging_src}/${doc}
    VERBATIM)
endforeach()
add_custom_target(amorra-docs ALL
  DEPENDS ${amorra_packaging_bin}/amorra.6.gz ${amorra_packaging_bin}/changelog.gz)
install(FILES ${amorra_packaging_bin}/amorra.6.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man6)
install(FILES ${amorra_packaging_bin}/changelog.gz DESTINATION ${AMORRA_DOC_DESTINATION})

# The Debian package.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME amorra)
set(CPACK_PACKAGE_VENDOR "The Amorra developers")
set(CPACK_PACKAGE_CONTACT "The Amorra developers <amorra@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "little desktop dating game")
set(CPACK_PACKAGE_DESCRIPTION
  "Rate yourself for looks, smarts and luck, then win the heart of the girl the
game picks for you before the 30th day: work for money, improve yourself,
phone her to learn what she likes, buy her gifts and take her out. Winning
fast and cheaply earns a place in the Top 20.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SECTION games)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE https://amorra.github.io/)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# dpkg-shlibdeps names the libraries the game links (Qt), with the versions it
# was built against. Added here is what is loaded at run time instead: ALSA
# (at the first sound); the platform plugins (xcb itself ships in libqt6gui6); the ALSA plugin that
# takes the sound effects to the desktop's sound server (PipeWire's on
# GNOME, PulseAudio's from libasound2-plugins on a PulseAudio desktop such
# as KDE, where it is already installed with PulseAudio); xdg-open for the
# help pages; native Wayland windows.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libasound2 (>= 1.0.16), qt6-qpa-plugins")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "pipewire-alsa | libasound2-plugins, xdg-utils, qt6-wayland")
include(CPack)
