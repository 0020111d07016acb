# Fails when a source is not laid out as .clang-format wants it, or a comment is wider than its columns.
# Run by: cmake -DSOURCE_DIR=... -P format.cmake

# Another version lays out otherwise.
set(judge 14)
execute_process(COMMAND clang-format --version OUTPUT_VARIABLE version)
if(NOT version MATCHES "version ${judge}\\.")
  message("NOT JUDGED: layout is what clang-format ${judge} (Debian 12) makes of it; here is ${version}")
  return()
endif()

set(files "")
foreach(folder IN ITEMS windowsystem os overlay action pen shell examples tests bench)
  file(GLOB_RECURSE found ${SOURCE_DIR}/${folder}/*.h ${SOURCE_DIR}/${folder}/*.cpp)
  list(APPEND files ${found})
endforeach()
execute_process(COMMAND clang-format --dry-run -Werror ${files} RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "./dev format lays these files out")
endif()

# It leaves the text of comments alone.
string(REPEAT "." 101 wide)
foreach(file IN LISTS files)
  file(STRINGS ${file} comments REGEX "^ *//")
  foreach(comment IN LISTS comments)
    if(comment MATCHES "^${wide}")
      message(SEND_ERROR "${file}: wider than 100 columns: ${comment}")
    endif()
  endforeach()
endforeach()
