# SPDX-FileCopyrightText: 2026 The Velkor developers
# SPDX-License-Identifier: GPL-3.0-or-later

# Renders every picture of the program and of its desktop entry from the drawings in resources/svg,
# by the target "icons". The results are part of the tree, so a build needs none of the programs used
# here. After changing a drawing look at the pictures at 18 pixels on the window's grey, and commit
# both. Debian packages: scripts/setup icons
cmake_minimum_required(VERSION 3.21)
get_filename_component(root ${CMAKE_CURRENT_LIST_DIR} DIRECTORY)
set(svg ${root}/resources/svg)
set(hicolor ${root}/packaging/icons/hicolor)
set(work ${CMAKE_CURRENT_BINARY_DIR}/icons)
file(MAKE_DIRECTORY ${work})

# draw(SOURCE WIDTH HEIGHT TARGET [STYLESHEET])
function(draw source width height target)
  set(style)
  if(ARGN)
    set(style --stylesheet ${ARGN})
  endif()
  execute_process(COMMAND_ERROR_IS_FATAL ANY COMMAND rsvg-convert --width ${width} --height ${height}
    ${style} --output ${target} ${svg}/${source}.svg)
endfunction()

# draw_both(SOURCE WIDTH HEIGHT NAME [STYLESHEET])
# For the window, also in twice the size for sharp screens. Menus need the small one only.
function(draw_both source width height name)
  draw(${source} ${width} ${height} ${root}/resources/${name}.png ${ARGN})
  math(EXPR width "2 * ${width}")
  math(EXPR height "2 * ${height}")
  draw(${source} ${width} ${height} ${root}/resources/sharp/${name}@2x.png ${ARGN})
endfunction()

foreach(name gain velocity average Y X scale pulse_width amplitude impendance cursorA cursorB
    diifference)
  draw_both(rest/${name} 64 64 icons/rest_64/${name})
endforeach()
draw_both(rest/setting 65 65 icons/rest_64/setting)
foreach(name load reset clear info cursor)
  draw(rest/${name} 64 64 ${root}/resources/icons/rest_64/${name}.png)
endforeach()
draw(rest/reset 64 64 ${root}/resources/icons/rest_64/reset_disable.png ${svg}/disabled.css)
foreach(name zoom_in zoom_out arrow_left arrow_right)
  draw_both(icons/${name} 96 96 icons/${name})
  draw_both(icons/${name} 96 96 icons/${name}_dis ${svg}/disabled.css)
endforeach()
foreach(name eye_opened eye_closed)
  draw(icons/${name} 302 212 ${root}/resources/icons/${name}.png)
endforeach()
draw_both(icons/logo 180 74 pix/logo)

# One drawing holds six numbers and shows the one that the style selects.
set(number 0)
foreach(colours "rgb(0,255,0) #17191b" "rgb(0,255,255) #17191b" "rgb(255,0,255) #17191b"
    "rgb(255,0,0) #ffffff" "rgb(255,255,0) #17191b" "rgb(0,0,255) #ffffff")
  math(EXPR number "${number} + 1")
  string(REPLACE " " ";" colours ${colours})
  list(GET colours 0 plate)
  list(GET colours 1 ink)
  file(WRITE ${work}/slot.css ".plate { fill: ${plate} } .number { stroke: ${ink} } "
    ".digit { display: none } #n${number} { display: inline }")
  draw_both(canal/canal 64 64 icons/canal_64/canal_${number} ${work}/slot.css)
  draw_both(canal/canal_master 64 64 icons/canal_64/canal_${number}M ${work}/slot.css)
endforeach()
draw_both(canal/Canal_Disabled 64 64 icons/canal_64/Canal_Disabled)

# The smallest sizes have a drawing of their own; the full one would blur.
foreach(size 16 22 24 32 48 64 128 256)
  set(drawing app/velkor)
  if(size LESS 32)
    set(drawing app/velkor_small)
  endif()
  draw(${drawing} ${size} ${size} ${hicolor}/${size}x${size}/apps/org.velkor.Velkor.png)
  set(png_${size} ${hicolor}/${size}x${size}/apps/org.velkor.Velkor.png)
endforeach()
file(COPY_FILE ${svg}/app/velkor.svg ${root}/packaging/icons/org.velkor.Velkor.svg)
set(icon ${root}/resources/icons/tdr_btr_64)
draw(app/velkor 64 64 ${icon}.png)
execute_process(COMMAND_ERROR_IS_FATAL ANY
  COMMAND icotool --create --output=${icon}.ico ${icon}.png ${png_32})
# Windows expects the largest size as PNG.
execute_process(COMMAND_ERROR_IS_FATAL ANY
  COMMAND icotool --create --output=${root}/packaging/windows/velkor.ico
    ${png_16} ${png_24} ${png_32} ${png_48} ${png_64} --raw=${png_256})
