# Installing Amorra as a desktop game, and its Debian package (make package).
#
# Under the prefix:
#   bin/amorra                     launcher: makes the player's data folder, starts the game in it
#   libexec/amorra/amorra-game     the game
#   share/amorra/                  her pictures, animations, sounds, help, quick start guide
#   share/applications/            io.github.amorra.Amorra.desktop
#   share/icons/hicolor/           amorra.png in 16..256, amorra.svg
#   share/metainfo/                io.github.amorra.Amorra.metainfo.xml
#   share/man/man6/                amorra.6.gz
#   share/doc/amorra/              copyright (the licence), changelog.gz

set(AMORRA_APP_ID io.github.amorra.Amorra)
set(amorra_packaging_src ${PROJECT_SOURCE_DIR}/packaging)
set(amorra_packaging_bin ${PROJECT_BINARY_DIR}/packaging)
set(amorra_assets_src ${PROJECT_SOURCE_DIR}/assets)
set(AMORRA_ASSETS_DESTINATION ${CMAKE_INSTALL_DATADIR}/amorra)

# Installed folders stay readable for everyone, whatever the umask of the
# one who builds the package.
set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

# The launcher finds the game and the assets relative to itself, so the same
# script works from /usr, /usr/local, a staging prefix or the build tree.
file(RELATIVE_PATH AMORRA_GAME_RELPATH
  ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBEXECDIR}/amorra/amorra-game)
file(RELATIVE_PATH AMORRA_ASSETS_RELPATH
  ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_PREFIX}/${AMORRA_ASSETS_DESTINATION})
configure_file(${amorra_packaging_src}/amorra.in ${amorra_packaging_bin}/amorra @ONLY
  FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
install(PROGRAMS ${amorra_packaging_bin}/amorra DESTINATION ${CMAKE_INSTALL_BINDIR})

if(TARGET amorra-game)
  install(TARGETS amorra-game RUNTIME DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/amorra)
endif()

# What the game loads at run time; the icons go to the icon theme.
# CONFIGURE_DEPENDS: a picture added later still gets installed.
file(GLOB amorra_top_assets CONFIGURE_DEPENDS
  ${amorra_assets_src}/girl*.bmp ${amorra_assets_src}/*.gif ${amorra_assets_src}/qsguide.rtf)
if(amorra_top_assets)
  install(FILES ${amorra_top_assets} DESTINATION ${AMORRA_ASSETS_DESTINATION})
endif()
file(GLOB amorra_asset_dirs CONFIGURE_DEPENDS LIST_DIRECTORIES true
  ${amorra_assets_src}/sounds ${amorra_assets_src}/pictures ${amorra_assets_src}/help)
if(amorra_asset_dirs)
  install(DIRECTORY ${amorra_asset_dirs} DESTINATION ${AMORRA_ASSETS_DESTINATION})
endif()

install(FILES ${amorra_packaging_src}/${AMORRA_APP_ID}.desktop
  DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${amorra_packaging_src}/${AMORRA_APP_ID}.metainfo.xml
  DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

# Icon=amorra in the desktop entry: one PNG per theme size plus the SVG.
file(GLOB amorra_icons CONFIGURE_DEPENDS
  ${amorra_assets_src}/icons/amorra-*.png ${amorra_assets_src}/icons/amorra.svg)
foreach(icon IN LISTS amorra_icons)
  if(icon MATCHES "/amorra-([0-9]+)\\.png$")
    install(FILES ${icon} RENAME amorra.png
      DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${CMAKE_MATCH_1}x${CMAKE_MATCH_1}/apps)
  elseif(icon MATCHES "/amorra\\.svg$")
    install(FILES ${icon} DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
    # The window icon when the theme has no amorra (a prefix outside XDG_DATA_DIRS).
    install(FILES ${icon} DESTINATION ${AMORRA_ASSETS_DESTINATION}/icons)
  endif()
endforeach()

install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} RENAME copyright)

# Debian ships man pages and changelogs compressed; -n keeps the archive free of time stamps.
find_program(AMORRA_GZIP gzip)
if(AMORRA_GZIP)
  foreach(doc amorra.6 changelog)
    add_custom_command(OUTPUT ${amorra_packaging_bin}/${doc}.gz
      COMMAND ${CMAKE_COMMAND} -E copy ${amorra_packaging_src}/${doc} ${amorra_packaging_bin}/${doc}
      COMMAND ${AMORRA_GZIP} -9nf ${amorra_packaging_bin}/${doc}
      DEPENDS ${amorra_packaging_src}/${doc}
      VERBATIM)
  endforeach()
  add_custom_target(amorra-docs ALL
    DEPENDS ${amorra_packaging_bin}/amorra.6.gz ${amorra_packaging_bin}/changelog.gz)
  install(FILES ${amorra_packaging_bin}/amorra.6.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man6)
  install(FILES ${amorra_packaging_bin}/changelog.gz DESTINATION ${CMAKE_INSTALL_DOCDIR})
else()
  install(FILES ${amorra_packaging_src}/amorra.6 DESTINATION ${CMAKE_INSTALL_MANDIR}/man6)
  install(FILES ${amorra_packaging_src}/changelog DESTINATION ${CMAKE_INSTALL_DOCDIR})
endif()

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
set(CPACK_DEBIAN_PACKAGE_SECTION games)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# dpkg-shlibdeps names the libraries the game links (Qt, ALSA), with the versions it
# was built against. Added here is what is loaded at run time instead: the
# platform plugins (xcb itself ships in libqt6gui6), the ALSA plugin that
# takes the sound effects to the desktop's sound server (PipeWire's, or
# PulseAudio's from libasound2-plugins), xdg-open for the help pages, native
# Wayland windows and the SVG window icon.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "pipewire-alsa | libasound2-plugins, xdg-utils, qt6-wayland, libqt6svg6")
include(CPack)
