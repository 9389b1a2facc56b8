# Reads every quoted #include of the program's folders and fails on an arrow the layers forbid: a folder
# may include its own headers and those of the libraries its library links, as the build wrote them to
# RULES. The platform tests are held to the platform, which is all their suite links.
#   cmake -DSOURCE_DIR=<tree> -DRULES=<build>/layers.cmake -P check-layers.cmake
cmake_minimum_required(VERSION 3.20)
include(${RULES})

set(HB_KNOWN_FOLDERS ${HB_LAYERS} app tests bench)
set(checked_folders ${HB_LAYERS} tests/platform)
set(HB_ALLOWED_tests/platform platform tests)

# The folder a quoted include of FILE lands in: a path that starts with a dot or names a file beside
# FILE is taken from FILE's folder, any other from the root of the tree.
function(included_folder file header out)
  get_filename_component(dir "${file}" DIRECTORY)
  if(header MATCHES "^\\." OR EXISTS "${SOURCE_DIR}/${dir}/${header}")
    cmake_path(SET target NORMALIZE "${dir}/${header}")
  else()
    set(target "${header}")
  endif()
  string(REGEX MATCH "^[^/]+/" folder "${target}")
  string(REGEX REPLACE "/$" "" folder "${folder}")
  set(${out} "${folder}" PARENT_SCOPE)
endfunction()

set(forbidden 0)
set(files_read 0)
set(includes_read 0)
foreach(layer IN LISTS checked_folders)
  file(GLOB_RECURSE files LIST_DIRECTORIES false RELATIVE "${SOURCE_DIR}"
    "${SOURCE_DIR}/${layer}/*.cpp" "${SOURCE_DIR}/${layer}/*.h")
  list(SORT files)
  foreach(file IN LISTS files)
    math(EXPR files_read "${files_read} + 1")
    file(STRINGS "${SOURCE_DIR}/${file}" lines REGEX "^[ \t]*#[ \t]*include[ \t]*\"")
    foreach(line IN LISTS lines)
      math(EXPR includes_read "${includes_read} + 1")
      string(REGEX REPLACE "^[ \t]*#[ \t]*include[ \t]*\"([^\"]+)\".*" "\\1" header "${line}")
      included_folder("${file}" "${header}" folder)
      if(folder IN_LIST HB_KNOWN_FOLDERS AND NOT folder IN_LIST HB_ALLOWED_${layer})
        message("${file} includes \"${header}\": ${layer}/ may use only ${HB_ALLOWED_${layer}}")
        math(EXPR forbidden "${forbidden} + 1")
      endif()
    endforeach()
  endforeach()
endforeach()

if(forbidden GREATER 0)
  message(FATAL_ERROR "Forbidden includes: ${forbidden} (of ${includes_read} in ${files_read} files)")
endif()
foreach(layer IN LISTS checked_folders)
  message("${layer}/ may include: ${HB_ALLOWED_${layer}}")
endforeach()
message("Forbidden includes: 0 (of ${includes_read} in ${files_read} files)")
