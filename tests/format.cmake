# Fails when a source is not laid out as .clang-format wants it.
# Run by: cmake -DSOURCE_DIR=... -P format.cmake

# Another version lays out otherwise.
set(judge 14)
execute_process(COMMAND clang-format --version OUTPUT_VARIABLE version)
if(NOT version MATCHES "version ${judge}\\.")
  message("NOT JUDGED: layout is what clang-format ${judge} (Debian 12) makes of it; here is ${version}")
  return()
endif()

set(files "")
foreach(folder IN ITEMS os overlay action pen shell examples tests bench)
  file(GLOB_RECURSE found ${SOURCE_DIR}/${folder}/*.h ${SOURCE_DIR}/${folder}/*.cpp)
  list(APPEND files ${found})
endforeach()
execute_process(COMMAND clang-format --dry-run -Werror ${files} RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "./dev format lays these files out")
endif()
