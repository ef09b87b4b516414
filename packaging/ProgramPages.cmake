# Manual pages and completions, made from what the programs say with --help.
find_program(HELP2MAN help2man)
find_package(Python3 COMPONENTS Interpreter)

# program_pages(PROGRAM SUMMARY [COMPONENT]): packaging/man/PROGRAM.h2m holds what the help does not say. The program is a
# target, or a script of the package norra-fleet.
function(program_pages program summary)
  set(made)
  set(place)
  if(ARGC GREATER 2)
    set(place COMPONENT ${ARGV2} EXCLUDE_FROM_ALL)
  endif()
  set(file ${CMAKE_CURRENT_BINARY_DIR}/fleet/${program})
  if(TARGET ${program})
    set(file $<TARGET_FILE:${program}>)
  endif()
  if(HELP2MAN)
    set(page ${CMAKE_CURRENT_BINARY_DIR}/${program}.1)
    set(more ${CMAKE_CURRENT_SOURCE_DIR}/man/${program}.h2m)
    add_custom_command(OUTPUT ${page}.gz
      COMMAND ${HELP2MAN} --no-info --name=${summary} --manual=Norra --source=${PROJECT_NAME}\ ${PROJECT_VERSION}
              --include=${more} --output=${page} ${file}
      COMMAND gzip -9nf ${page}
      DEPENDS ${file} ${more} VERBATIM)
    install(FILES ${page}.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 ${place})
    list(APPEND made ${page}.gz)
  endif()
  if(Python3_Interpreter_FOUND)
    set(generator ${CMAKE_CURRENT_SOURCE_DIR}/completion.py)
    foreach(shell bash zsh)
      set(completion ${CMAKE_CURRENT_BINARY_DIR}/completion/${shell}/${program})
      add_custom_command(OUTPUT ${completion}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_CURRENT_BINARY_DIR}/completion/${shell}
        COMMAND ${Python3_EXECUTABLE} ${generator} ${shell} ${file} > ${completion}
        DEPENDS ${file} ${generator} VERBATIM)
      list(APPEND made ${completion})
    endforeach()
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/completion/bash/${program}
      DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions ${place})
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/completion/zsh/${program} RENAME _${program}
      DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions ${place})
  endif()
  add_custom_target(${program}-pages ALL DEPENDS ${made})
endfunction()

program_pages(norra-collect "print what is done in the applications of this desktop")
program_pages(norra-collector-service "watch what is done in the applications of this desktop")
program_pages(norra-export "make an event log for process mining from a recorded session")
program_pages(norra-report "make a page to look at from a recorded session")
program_pages(norra-scenario "play a described desktop through the collector service")
program_pages(norra-publish "publish reports to the MQTT broker of this machine" fleet)
program_pages(norra-fleet "pause the collection of a desktop, and join it to a fleet" fleet)
