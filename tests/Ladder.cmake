# Every include of src/ and apps/ that starts at src/ must name a folder on the same rung or below.
# Rungs from the ground up; a folder may use its own rung and the ones its line lists.
set(ladder
  "Util:"
  "Parser:Util"
  "Graphics:Util"
  "Audio:Util"
  "Input:Util"
  "Game:Util"
  "Game/Database:Util Parser Game"
  "Game/Map:Util Parser Game Game/Database Graphics"
  "Game/Sprite:Util Parser Game Game/Database Graphics"
  "Game/Compiler:Util Parser Game Game/Database Graphics Audio Input"
  "TextEditor:Util"
  "MapEditor3D:Util Parser Graphics Audio Input Game Game/Database Game/Map Game/Sprite Game/Compiler"
  "Component:Util Graphics"
  "DatabaseDialog:Util Parser Graphics Audio Input Game Game/Database Game/Map Game/Compiler TextEditor Component"
  "MapEditor3D/frame:Util Parser Graphics Audio Input Game Game/Database Game/Map Game/Compiler TextEditor MapEditor3D Component DatabaseDialog")

get_filename_component(root "${CMAKE_CURRENT_LIST_DIR}/.." ABSOLUTE)
set(faults "")
foreach(line IN LISTS ladder)
  string(REGEX MATCH "^([^:]*):(.*)$" _ "${line}")
  set(folder "${CMAKE_MATCH_1}")
  string(REPLACE " " ";" allowed "${CMAKE_MATCH_2}")
  list(APPEND allowed "${folder}")
  file(GLOB_RECURSE files "${root}/src/${folder}/*.h" "${root}/src/${folder}/*.cpp")
  if(folder STREQUAL "Game")
    file(GLOB files "${root}/src/Game/*.h" "${root}/src/Game/*.cpp")
  endif()
  if(folder STREQUAL "MapEditor3D")
    list(FILTER files EXCLUDE REGEX "/frame/")
  endif()
  foreach(file IN LISTS files)
    file(STRINGS "${file}" includes REGEX "^#include \"")
    foreach(include IN LISTS includes)
      string(REGEX REPLACE "^#include \"([^\"]*)\".*$" "\\1" path "${include}")
      get_filename_component(target "${path}" DIRECTORY)
      set(ok FALSE)
      foreach(base IN LISTS allowed)
        if(base STREQUAL "Game")
          if(target STREQUAL "Game")
            set(ok TRUE)
          endif()
        elseif(target STREQUAL base OR target MATCHES "^${base}/")
          set(ok TRUE)
        endif()
      endforeach()
      if(NOT ok)
        string(APPEND faults "${file}: includes ${path}, above ${folder}\n")
      endif()
    endforeach()
  endforeach()
endforeach()

# Only the two rooms of the window toolkit and the raster library name it.
file(GLOB_RECURSE files "${root}/src/*.h" "${root}/src/*.cpp" "${root}/apps/*.cpp" "${root}/apps/*.h")
list(FILTER files EXCLUDE REGEX "/Component/native/|/Graphics/Raster.cpp$")
foreach(file IN LISTS files)
  file(STRINGS "${file}" includes REGEX "^#include <Q[A-Za-z]+>")
  if(includes)
    string(APPEND faults "${file}: names the window toolkit\n")
  endif()
endforeach()

if(faults)
  message(FATAL_ERROR "${faults}")
endif()
