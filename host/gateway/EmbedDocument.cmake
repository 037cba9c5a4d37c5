# Writes SOURCE: the bytes of DOCUMENT as a literal of the program, given out by OpenApiDocument().
file(READ ${DOCUMENT} TEXT)
file(WRITE ${SOURCE} "#include \"host/gateway/OpenApi.h\"

namespace zanhost {

std::string_view OpenApiDocument() { return R\"zanjson(${TEXT})zanjson\"; }

}  // namespace zanhost
")
