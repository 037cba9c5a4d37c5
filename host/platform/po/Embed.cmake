# Writes a source file that carries the bytes of a compiled catalogue.
# cmake -DCATALOGUE=in.mo -DSOURCE=out.cpp -P Embed.cmake
file(READ ${CATALOGUE} bytes HEX)
string(REGEX REPLACE "(................................)" "\\1\n" bytes "${bytes}")
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "'\\\\x\\1'," bytes "${bytes}")
file(WRITE ${SOURCE} "#include \"host/platform/EnglishTexts.h\"

namespace zanhost {

namespace {

constexpr char kTexts[] = {
${bytes}
};

}  // namespace

std::string_view EnglishTexts() { return {kTexts, sizeof(kTexts)}; }

}  // namespace zanhost
")
