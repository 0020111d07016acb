# The resource collection must list each PNG image, and each must be what resources/render makes of its drawing with
# the renderer's version that drew them; others draw edges otherwise.
#
#   cmake -DSOURCE_DIR=<project> -DWORK_DIR=<scratch folder> -P artworktest.cmake
#
# Pixels are compared, not bytes: another version of the renderer may pack the same picture otherwise.

cmake_minimum_required(VERSION 3.20)

if(NOT SOURCE_DIR OR NOT WORK_DIR)
  message(FATAL_ERROR "SOURCE_DIR and WORK_DIR must be given")
endif()
get_filename_component(resources "${SOURCE_DIR}/resources" ABSOLUTE)
get_filename_component(rendered "${WORK_DIR}/artwork" ABSOLUTE)
find_program(COMPARE compare)
set(judge 2.54)
execute_process(COMMAND rsvg-convert --version OUTPUT_VARIABLE version)

# Lists the PNG files below a folder, relative to it.
function(list_images folder result)
  file(GLOB_RECURSE images RELATIVE "${folder}" "${folder}/*.png")
  list(SORT images)
  set(${result} "${images}" PARENT_SCOPE)
endfunction()

# Reports every item of one list that the other lacks.
function(expect_within items others complaint)
  foreach(item IN LISTS ${items})
    if(NOT item IN_LIST ${others})
      message(SEND_ERROR "${item}: ${complaint}")
      set(misfits TRUE PARENT_SCOPE)
    endif()
  endforeach()
endfunction()

function(expect_same_picture image)
  file(SHA256 "${resources}/${image}" kept)
  file(SHA256 "${rendered}/${image}" made)
  if(kept STREQUAL made)
    return()
  endif()
  if(NOT COMPARE)
    message(SEND_ERROR "${image}: its bytes differ from its drawing's, and ImageMagick is not there to look closer")
    return()
  endif()
  # The metric goes to the error stream: the number of pixels that differ, or a complaint about the sizes.
  execute_process(COMMAND "${COMPARE}" -metric AE "${resources}/${image}" "${rendered}/${image}" null:
    RESULT_VARIABLE failure ERROR_VARIABLE difference OUTPUT_QUIET)
  if(failure OR NOT difference STREQUAL "0")
    message(SEND_ERROR "${image}: differs from its drawing (${difference}); run resources/render")
  endif()
endfunction()

file(REMOVE_RECURSE "${rendered}")
execute_process(COMMAND "${resources}/render" "${rendered}" RESULT_VARIABLE failure)
if(failure)
  message(FATAL_ERROR "resources/render failed: ${failure}")
endif()

list_images("${resources}" kept_images)
list_images("${rendered}" made_images)
if(NOT made_images)
  message(FATAL_ERROR "resources/render made no images")
endif()
expect_within(made_images kept_images "missing beside its drawing; run resources/render")
expect_within(kept_images made_images "no drawing makes it")
file(READ "${resources}/vellumcraft.qrc" collection)
if(NOT collection MATCHES "<qresource prefix=\"/resource\">")
  message(SEND_ERROR "vellumcraft.qrc: its images must stand below the prefix /resource")
endif()
string(REGEX REPLACE "<!--([^-]|-[^-])*-->" "" collection "${collection}")
string(REGEX MATCHALL "<file>[^<]*\\.png</file>" listed_images "${collection}")
list(TRANSFORM listed_images REPLACE "</?file>" "")
expect_within(kept_images listed_images "not listed in vellumcraft.qrc")
expect_within(listed_images kept_images "listed in vellumcraft.qrc, but missing")

if(NOT version MATCHES "version ${judge}\\.")
  if(NOT misfits)
    message("NOT JUDGED: the drawings' pixels are those of librsvg ${judge} (Debian 12); here is ${version}")
  endif()
  return()
endif()
foreach(image IN LISTS kept_images)
  if(image IN_LIST made_images)
    expect_same_picture("${image}")
  endif()
endforeach()
