# What players get besides programs and data, and the packages that CPack makes. ./package builds
# all of them, including the installer for Windows.

set(programs wingtally wingtally-career wingtally-standin wingtally-datacheck wingtally-menucheck)

# resources(PROGRAM DESCRIPTION [ICON-LINE]): Windows shows these words as the program's name.
function(resources program description)
  set(icon ${ARGN})
  set(made ${CMAKE_BINARY_DIR}/resources/${program}.rc)
  configure_file(packaging/program.rc.in ${made} @ONLY)
  target_sources(${program} PRIVATE ${made})
  set_source_files_properties(${made} TARGET_DIRECTORY ${program} PROPERTIES OBJECT_DEPENDS
    "${CMAKE_SOURCE_DIR}/packaging/wingtally.manifest;${CMAKE_SOURCE_DIR}/packaging/wingtally.ico")
endfunction()

if(WIN32)
  resources(wingtally "Wingtally" "1 ICON \"${CMAKE_SOURCE_DIR}/packaging/wingtally.ico\"")
  resources(wingtally-career "Wingtally on the command line")
  resources(wingtally-standin "Stand-in simulator for Wingtally")
  resources(wingtally-datacheck "Check of Wingtally's history")
  resources(wingtally-menucheck "Check of Wingtally's screens")
endif()

# Players get the README without what holds in the source tree alone.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS README.md)
execute_process(COMMAND sed "/^<!-- source tree only -->$/,/^<!-- end -->$/d" README.md
  COMMAND cat -s
  WORKING_DIRECTORY ${CMAKE_SOURCE_DIR} OUTPUT_FILE ${CMAKE_BINARY_DIR}/README.md
  COMMAND_ERROR_IS_FATAL ANY)

# The folders of the documents, the licences and this system's own files.
if(WIN32)
  set(documents docs)
  set(licences Licenses)
  install(FILES ${CMAKE_BINARY_DIR}/README.md DESTINATION .)
  install(FILES LICENSE DESTINATION ${licences} RENAME Wingtally.txt)
  install(FILES packaging/licenses/README.txt packaging/licenses/CLI11.txt
    packaging/licenses/nlohmann-json.txt packaging/licenses/stb.txt packaging/licenses/xxHash.txt
    DESTINATION ${licences})
  # What is beside the programs or is linked into them brings its licence along.
  cmake_path(GET SDLMAIN_LIBRARY PARENT_PATH sdl)
  cmake_path(GET sdl PARENT_PATH sdl)
  install(FILES ${sdl}/bin/SDL.dll DESTINATION .)
  install(FILES ${sdl}/share/licenses/SDL/COPYING DESTINATION ${licences} RENAME SDL.txt)
  install(FILES /usr/share/doc/mingw-w64-x86-64-dev/copyright
    DESTINATION ${licences} RENAME mingw-w64.txt)
else()
  set(own ${CMAKE_INSTALL_DATAROOTDIR}/doc/wingtally)
  set(documents ${own}/docs)
  install(FILES ${CMAKE_BINARY_DIR}/README.md packaging/copyright DESTINATION ${own})
  install(FILES packaging/wingtally.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES data/Pictures/icon.png RENAME wingtally.png
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/32x32/apps)
  install(FILES data/Pictures/icon_256.png RENAME wingtally.png
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/256x256/apps)
endif()
install(FILES docs/manual.md docs/rules.md docs/standin.md docs/data-files.md docs/history.md docs/menu-scripts.md
  DESTINATION ${documents})
install(DIRECTORY docs/pictures DESTINATION ${documents} OPTIONAL)

add_custom_target(delivery DEPENDS ${programs} run_folder COMMENT "All that is installed")

# compress(FILE RESULT DESTINATION): installs it packed, without name and time inside, so that the
# same text always gives the same file.
function(compress file result destination)
  add_custom_command(OUTPUT ${CMAKE_BINARY_DIR}/compressed/${result}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/compressed
    COMMAND gzip -9nc ${CMAKE_SOURCE_DIR}/${file} > ${CMAKE_BINARY_DIR}/compressed/${result}
    DEPENDS ${CMAKE_SOURCE_DIR}/${file}
    VERBATIM)
  set_property(TARGET delivery APPEND PROPERTY compressed ${CMAKE_BINARY_DIR}/compressed/${result})
  install(FILES ${CMAKE_BINARY_DIR}/compressed/${result} DESTINATION ${destination})
endfunction()

if(NOT WIN32)
  foreach(program ${programs})
    compress(packaging/man/${program}.1 ${program}.1.gz ${CMAKE_INSTALL_MANDIR}/man1)
  endforeach()
  compress(packaging/changelog changelog.gz ${own})
  get_target_property(compressed delivery compressed)
  add_custom_target(compressed ALL DEPENDS ${compressed})
  add_dependencies(delivery compressed)
endif()

# Packing takes what `delivery` has built; nobody waits for tests and benchmarks.
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)

set(CPACK_PACKAGE_NAME wingtally)
set(CPACK_PACKAGE_VENDOR "The Wingtally developers")
set(CPACK_PACKAGE_CONTACT "The Wingtally developers <wingtally@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "pilot's career for the flight simulator Rise of Flight")
set(CPACK_PACKAGE_DESCRIPTION "\
Wingtally keeps a pilot's career over the Western Front of the First World
War. It takes its player into one of hundreds of historical squadrons, lives
the air war around him day by day with their aces, writes his next mission
into the simulator's folder, reads the simulator's log of it, and carries what
happened into the war, until 11 November 1918.

Rise of Flight isn't part of it. Where it is missing, a stand-in simulator
flies the missions.")
set(CPACK_RESOURCE_FILE_LICENSE ${CMAKE_SOURCE_DIR}/LICENSE)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
if(WIN32)
  set(CPACK_GENERATOR ZIP)
  set(CPACK_PACKAGE_FILE_NAME wingtally-${PROJECT_VERSION}-windows-x86_64)
else()
  set(CPACK_GENERATOR "TGZ;DEB")
  set(CPACK_PACKAGE_FILE_NAME wingtally-${PROJECT_VERSION}-linux-${CMAKE_SYSTEM_PROCESSOR})
endif()
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils) # games would have to be in /usr/games
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
include(CPack)
