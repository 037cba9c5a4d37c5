#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace zantest {

/// One string literal of a C++ source, adjacent pieces joined, escapes resolved.
struct TSourceText {
  std::string Place;  ///< file:line of its first piece
  std::string Text;
};

/// The literals of a C++ source in order; comments and character literals are passed over.
std::vector<TSourceText> LiteralsOf(std::string_view source, const std::string& fileName);

/// Does the text hold a Chinese character or punctuation mark?
bool IsChinese(std::string_view text);

/// Is the text part of a statement, where Chinese words are data of the tables?
bool IsStatement(std::string_view text);

/// The Chinese literals of all sources below a folder that people may read: statements are left out, and so
/// are files whose name starts with one of `dataFiles`.
std::vector<TSourceText> ChineseTextsBelow(const std::filesystem::path& folder,
                                           const std::vector<std::string>& dataFiles);

}  // namespace zantest
