# Makes the reference by DOXYFILE into API and fails on whatever Doxygen has to say, and where comments did not come out.

file(REMOVE_RECURSE ${API})
execute_process(COMMAND doxygen ${DOXYFILE} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
if(NOT result EQUAL 0 OR NOT output STREQUAL "")
  message(FATAL_ERROR "doxygen: ${result}\n${output}")
endif()

function(check_page page text)
  file(READ ${API}/html/${page} html)
  if(NOT html MATCHES "${text}")
    message(SEND_ERROR "${page} does not say '${text}'")
  endif()
endfunction()

# A comment in front of a class, of a function, behind a member, of a file, and a heading.
check_page(classtessarine_1_1TextSnapshot.html "A text as it was at one moment")
check_page(classtessarine_1_1TextSnapshot.html "The longest contiguous run around")
check_page(structtessarine_1_1SearchResult.html "a UUID of its own")
check_page(SemanticColors_8h.html "Colours by what they are for")
check_page(classtessarine_1_1TextView.html "What shows on screen")
