# SPDX-FileCopyrightText: 2026 The Velkor developers
# SPDX-License-Identifier: GPL-3.0-or-later

# Puts Qt's libraries beside the installed program with windeployqt. Without that tool only the
# program is installed, with a message. Qt's CMake files are in lib/cmake/Qt5 or Qt6, its programs
# in bin beside lib. Some installations add Qt's version to their names.
find_program(VELKOR_WINDEPLOYQT
  NAMES windeployqt windeployqt${VELKOR_QT_MAJOR} windeployqt-qt${VELKOR_QT_MAJOR}
  HINTS ${Qt${VELKOR_QT_MAJOR}_DIR}/../../../bin)

if(VELKOR_WINDEPLOYQT)
  # The program has its translations in its own resources and uses only the raster engine.
  install(CODE "
    execute_process(
      COMMAND \"${VELKOR_WINDEPLOYQT}\" --no-translations --no-opengl-sw --compiler-runtime
        \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/$<TARGET_FILE_NAME:velkor>\"
      COMMAND_ERROR_IS_FATAL ANY)")
else()
  message(STATUS "windeployqt not found: Qt's libraries will not be installed")
endif()
