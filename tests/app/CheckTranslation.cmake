# Runs lupdate over the sources into a copy of the .ts and fails when any entry is left
# unfinished or has vanished from the sources. -D LUPDATE, TS, SOURCES (a list file), WORK and
# INCLUDE (the source root, so that a class is known by its namespace as the build knows it).
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
get_filename_component(_name ${TS} NAME)
file(COPY ${TS} DESTINATION ${WORK})
execute_process(COMMAND ${LUPDATE} -locations none -I ${INCLUDE} @${SOURCES} -ts ${WORK}/${_name}
                RESULT_VARIABLE _result OUTPUT_VARIABLE _out ERROR_VARIABLE _err)
if(NOT _result EQUAL 0)
  message(FATAL_ERROR "lupdate failed:\n${_out}${_err}")
endif()
file(READ ${WORK}/${_name} _ts)
string(REGEX MATCHALL "<source>[^<]*</source>[ \t\r\n]*<translation type=\"(unfinished|vanished|obsolete)\"" _bad "${_ts}")
list(LENGTH _bad _count)
if(_count GREATER 0)
  string(REPLACE ";" "\n" _list "${_bad}")
  message(FATAL_ERROR "${_name}: ${_count} entries not finished or no longer in the sources:\n${_list}")
endif()
message(STATUS "${_name}: every entry finished\n${_out}")
