# Makes the Debian package of the build BUILD with CPACK, which is of version VERSION, has it judged by the
# distribution's own checks, unpacks it into SCRATCH and works on the manual MANUAL with the batch program
# from there.
cmake_minimum_required(VERSION 3.25)

function(run)
  execute_process(COMMAND ${ARGN} WORKING_DIRECTORY ${SCRATCH} RESULT_VARIABLE result
                  OUTPUT_VARIABLE output ERROR_VARIABLE errors)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${ARGN}: ${result}\n${output}${errors}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE ${SCRATCH})
file(MAKE_DIRECTORY ${SCRATCH})
run(${CPACK} -G DEB --config ${BUILD}/CPackConfig.cmake -B ${SCRATCH})
file(GLOB package ${SCRATCH}/topicsmith_*.deb)
run(dpkg-deb --extract ${package} root)
file(GLOB_RECURSE unpacker ${SCRATCH}/root/usr/lib/topicsmith-unpack)
get_filename_component(program_folder "${unpacker}" DIRECTORY)
set(usr ${SCRATCH}/root/usr)
foreach(file ${usr}/bin/topicsmith ${usr}/bin/topicsmith-batch ${usr}/bin/topicsmith-hhc ${program_folder}/topicsmith-unpack
             ${program_folder}/topicsmith-browser.so "${program_folder}/HTML Topicsmith.chm"
             "${program_folder}/Home Button.jpg" ${usr}/share/applications/topicsmith.desktop
             ${usr}/share/mime/packages/topicsmith.xml ${usr}/share/man/man1/topicsmith-batch.1.gz
             ${usr}/share/bash-completion/completions/topicsmith-batch
             ${usr}/share/doc/topicsmith/html/index.html
             ${usr}/share/icons/hicolor/scalable/apps/topicsmith.svg
             ${usr}/share/doc/topicsmith/copyright)
  if(NOT EXISTS "${file}")
    message(FATAL_ERROR "not in the package: ${file}")
  endif()
endforeach()
run(lintian --allow-root --fail-on error,warning ${package})
run(desktop-file-validate root/usr/share/applications/topicsmith.desktop)
run(appstreamcli validate --no-net
    root/usr/share/metainfo/invalid.topicsmith.topicsmith.metainfo.xml)
run(sed -n "s/.*<release version=.\\([0-9.]*\\).*/\\1/p"
    root/usr/share/metainfo/invalid.topicsmith.topicsmith.metainfo.xml)
string(REGEX MATCH "[^\n]*" newest "${output}")
foreach(text changelog changelog.Debian)
  run(zgrep -m 1 "^## \\|^topicsmith" root/usr/share/doc/topicsmith/${text}.gz)
  if(NOT output MATCHES "[ (]${VERSION}[- ]" OR NOT newest STREQUAL VERSION)
    message(FATAL_ERROR "${text} or the metainfo (${newest}) does not begin with ${VERSION}: ${output}")
  endif()
endforeach()
run(dpkg-deb --field ${package} Depends)
foreach(library libqt6webenginewidgets6 libqt6widgets6 libhunspell libchm1)
  if(NOT output MATCHES ${library})
    message(FATAL_ERROR "the package does not ask for ${library}: ${output}")
  endif()
endforeach()

file(COPY ${MANUAL} DESTINATION ${SCRATCH})
get_filename_component(name ${MANUAL} NAME)
run(root/usr/bin/topicsmith-batch generate ${name} out/manual.hhp)
if(NOT EXISTS ${SCRATCH}/out/images/Image.jpg)
  message(FATAL_ERROR "the program does not find its pictures")
endif()
run(root/usr/bin/topicsmith --version)
