# Puts the style and the script of web sites into the programs: writes OUTPUT, a source file with the
# contents of files in the folder ASSETS.
cmake_minimum_required(VERSION 3.25)

set(source "#include \"web/Assets.h\"\n\nnamespace web {\n\n")

# embed(NAME FILE...): the files one after the other, without what only people read: comments that
# are lines of their own, what lines begin with and where most end, and blanks in styles.
function(embed name)
  set(literals "")
  foreach(file IN LISTS ARGN)
    file(READ ${ASSETS}/${file} text)
    string(REGEX REPLACE "\n +" "\n" text "\n${text}")
    string(REGEX REPLACE "\n//[^\n]*" "" text "${text}")
    string(REGEX REPLACE "\n/\\*[^*]*\\*/" "" text "${text}")
    string(REGEX REPLACE "\n\n+" "\n" text "${text}")
    if(file MATCHES "css$")
      string(REGEX REPLACE "([{},:;]) +" "\\1" text "${text}")
      string(REGEX REPLACE " +([{}])" "\\1" text "${text}")
    endif()
    string(REGEX REPLACE "([{,;])\n" "\\1" text "${text}")
    string(HEX "${text}" bytes)
    string(REGEX REPLACE "(..)" "\\\\x\\1" bytes "${bytes}")
    string(APPEND literals "\n    \"${bytes}\"")
  endforeach()
  set(source "${source}const std::string_view ${name} =${literals};\n\n" PARENT_SCOPE)
endfunction()

embed(siteStyle site.css)
embed(siteScript site.js tree.js search.js start.js)
file(WRITE ${OUTPUT} "${source}} // namespace web\n")
