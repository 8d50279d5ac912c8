# Reads every #include of our own files and fails on one that the table does not allow.

set(below_app Quillet/screens Quillet/browsing Quillet/controls Halcyonix Quillet/cloud Quillet/core
    platform/screens platform/highlightr platform/mirror platform/cloud platform/store platform/foundation)
set(below_account platform/screens platform/cloud platform/foundation)
set(below_Quillet/screens Quillet/browsing Quillet/controls Halcyonix Quillet/cloud Quillet/core platform/screens
    platform/highlightr platform/cloud platform/store platform/foundation)
set(below_Quillet/browsing Quillet/controls Halcyonix Quillet/cloud Quillet/core platform/screens platform/cloud
    platform/store platform/foundation)
set(below_Quillet/controls Halcyonix platform/screens platform/foundation)
set(below_Halcyonix platform/screens platform/foundation)
set(below_Quillet/cloud Quillet/core platform/cloud platform/store platform/foundation)
set(below_Quillet/core platform/mirror platform/cloud platform/store platform/foundation)
set(below_platform/mirror platform/cloud platform/store platform/foundation)
set(below_platform/cloud platform/foundation)
set(below_platform/screens platform/foundation)
set(below_platform/highlightr platform/foundation)
set(below_platform/store platform/foundation)
set(below_platform/foundation)
set(below_examples/editor Tessarine/view Tessarine/textview Tessarine/layout Tessarine/editing Tessarine/syntax Tessarine/document
    Tessarine/theme Tessarine/base themes languages)
# What programs outside of the tree include, and two that are built as if they were.
set(below_examples/embed Tessarine/TessarineView.h themes languages)
set(below_examples/terminal Tessarine/Tessarine.h themes languages)
set(below_Tessarine/TessarineView.h Tessarine/Tessarine.h Tessarine/view)
set(below_Tessarine/Tessarine.h Tessarine/textview Tessarine/editing Tessarine/syntax Tessarine/document Tessarine/theme)
set(below_themes Tessarine/theme Tessarine/base)
set(below_languages/catalogue languages/grammars Tessarine/syntax Tessarine/document Tessarine/theme Tessarine/base
    themes)
set(below_languages/grammars Tessarine/document Tessarine/base)
# The grammars are a table of foreign parsers, which only tests and benchmarks look into.
set(below_Tessarine/view Tessarine/textview Tessarine/layout Tessarine/editing Tessarine/syntax Tessarine/document
    Tessarine/theme Tessarine/base themes languages/catalogue languages/grammars)
set(below_Tessarine/textview Tessarine/layout Tessarine/editing Tessarine/syntax Tessarine/document Tessarine/theme
    Tessarine/base languages/grammars)
set(below_Tessarine/editing Tessarine/syntax Tessarine/document Tessarine/theme Tessarine/base languages/grammars)
set(below_Tessarine/layout Tessarine/editing Tessarine/syntax Tessarine/document Tessarine/theme Tessarine/base languages/grammars)
set(below_Tessarine/syntax Tessarine/document Tessarine/theme Tessarine/base languages/grammars)
set(below_Tessarine/document Tessarine/base)
set(below_Tessarine/theme Tessarine/base)
set(below_Tessarine/base)

set(checked 0)
foreach(folder app account Quillet/screens Quillet/browsing Quillet/controls Halcyonix Quillet/cloud Quillet/core
        platform/screens platform/highlightr platform/mirror platform/cloud platform/store platform/foundation
        examples/editor examples/embed examples/terminal languages/catalogue languages/grammars themes
        Tessarine/TessarineView.h Tessarine/Tessarine.h
        Tessarine/view Tessarine/textview Tessarine/layout Tessarine/editing Tessarine/syntax Tessarine/document
        Tessarine/theme Tessarine/base)
  file(GLOB_RECURSE sources RELATIVE ${ROOT} ${ROOT}/${folder}/*.h ${ROOT}/${folder}/*.cpp)
  list(FILTER sources EXCLUDE REGEX "/sample\\.[a-z]+$") # what languages are tried on
  if(folder MATCHES "\\.h$")
    set(sources ${folder})
  endif()
  foreach(source ${sources})
    file(STRINGS ${ROOT}/${source} includes REGEX "^#include (\"|<(Tessarine|themes|languages)/)")
    foreach(line ${includes})
      string(REGEX REPLACE "^#include [\"<]([^\">]+)[\">].*" "\\1" included "${line}")
      if(included MATCHES "\\.moc$")
        continue()
      endif()
      math(EXPR checked "${checked} + 1")
      set(allowed FALSE)
      foreach(target ${folder} ${below_${folder}})
        string(FIND "${included}/" "${target}/" at)
        if(at EQUAL 0)
          set(allowed TRUE)
        endif()
      endforeach()
      cmake_path(GET source PARENT_PATH beside)
      if(folder MATCHES "^examples/" AND EXISTS ${ROOT}/${beside}/${included})
        set(allowed TRUE)
      endif()
      # Benchmarks of all folders keep their figures in one form.
      if(source MATCHES "/bench/" AND included MATCHES "^tools/bench/")
        set(allowed TRUE)
      endif()
      if(NOT allowed)
        message(SEND_ERROR "${source} may not include ${included}")
      endif()
    endforeach()
  endforeach()
endforeach()
if(checked EQUAL 0)
  message(FATAL_ERROR "no includes were found: the check looks in the wrong place")
endif()
