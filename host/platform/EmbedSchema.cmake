# Writes SOURCE: the texts of the schema FILES as literals of the program, in the order of their names, given out
# by the function FUNCTION.
list(SORT FILES COMPARE NATURAL)
set(CODE "#include \"host/platform/SchemaFiles.h\"\n\nnamespace zanhost {\n\nnamespace {\n")
string(APPEND CODE "constexpr TSchemaFile kFiles[] = {\n")
foreach(FILE IN LISTS FILES)
  file(READ ${FILE} TEXT)
  get_filename_component(NAME ${FILE} NAME)
  string(APPEND CODE "    {\"${NAME}\", R\"zansql(${TEXT})zansql\"},\n")
endforeach()
string(APPEND CODE "};\n}  // namespace\n\n")
string(APPEND CODE "std::span<const TSchemaFile> ${FUNCTION}() { return kFiles; }\n\n}  // namespace zanhost\n")
file(WRITE ${SOURCE} "${CODE}")
