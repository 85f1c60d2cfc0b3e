# SPDX-FileCopyrightText: 2026 The Velkor developers
# SPDX-License-Identifier: GPL-3.0-or-later

# Puts Qt's libraries beside the installed program, with the tool that Qt brings
# for it. Without that tool the program alone is installed, and it is said.
# Qt's CMake files lie in lib/cmake/Qt5 or Qt6, its programs in bin beside lib. Some name
# them after Qt's version.
find_program(VELKOR_WINDEPLOYQT
  NAMES windeployqt windeployqt${VELKOR_QT_MAJOR} windeployqt-qt${VELKOR_QT_MAJOR}
  HINTS ${Qt${VELKOR_QT_MAJOR}_DIR}/../../../bin)

if(VELKOR_WINDEPLOYQT)
  # The program's texts are in its own bundle, and it draws with the raster engine alone.
  install(CODE "
    execute_process(
      COMMAND \"${VELKOR_WINDEPLOYQT}\" --no-translations --no-opengl-sw --compiler-runtime
        \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/$<TARGET_FILE_NAME:velkor>\"
      COMMAND_ERROR_IS_FATAL ANY)")
else()
  message(STATUS "windeployqt not found: Qt's libraries will not be installed")
endif()
