# Configures as a packager does, with nothing but folders, and installs: what is built by default and where it goes.
# Run by: cmake -DSOURCE_DIR=<project> -DWORK_DIR=<scratch folder> -DPREFIX_PATH=<where Qt is>
#   -DGENERATOR=<of this build> -P installtest.cmake

function(expect what is expected)
  if(NOT is STREQUAL expected)
    message(SEND_ERROR "${what}: ${is} instead of ${expected}")
  endif()
endfunction()

set(build ${WORK_DIR}/build)
set(stage ${WORK_DIR}/stage)
file(REMOVE_RECURSE ${WORK_DIR})
set(ENV{DESTDIR} ${stage})
unset(ENV{CMAKE_BUILD_TYPE})

# given
execute_process(COMMAND ${CMAKE_COMMAND} -S ${SOURCE_DIR} -B ${build} -G ${GENERATOR} -DCMAKE_PREFIX_PATH=${PREFIX_PATH}
                        -DCMAKE_INSTALL_PREFIX=/usr -DCMAKE_INSTALL_LIBDIR=lib64 -DCMAKE_INSTALL_BINDIR=apps/bin
                OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
load_cache(${build} READ_WITH_PREFIX "" CMAKE_BUILD_TYPE BUILD_TESTING)
# Installing asks for no more than that the files are there.
file(TOUCH ${build}/korvel ${build}/vellumcraft.rcc)

# when
execute_process(COMMAND ${CMAKE_COMMAND} --install ${build} OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)

# then
expect("build type" "${CMAKE_BUILD_TYPE}" Release)
expect("tests" "${BUILD_TESTING}" OFF)
file(GLOB_RECURSE files RELATIVE ${stage} ${stage}/*)
list(SORT files)
expect("files" "${files}" "usr/apps/bin/korvel;usr/lib64/korvel/korvel;usr/lib64/korvel/vellumcraft.rcc")
file(READ_SYMLINK ${stage}/usr/apps/bin/korvel target)
expect("link" "${target}" "../../lib64/korvel/korvel")
