# Makes the C++ source ${SOURCE} of the fonts in ${FOLDER}.
set(text "#include \"paper/fontfiles.h\"\n\nnamespace norvik {\n")
foreach(font Regular Bold)
    string(TOLOWER ${font} name)
    file(READ ${FOLDER}/${name}.ttf bytes HEX)
    string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${bytes}")
    string(APPEND text "\nByteView ${font}FontFile() {\n    static constexpr Byte File[] = {${bytes}};\n"
           "    return File;\n}\n")
endforeach()
file(WRITE ${SOURCE} "${text}\n}  // namespace norvik\n")
