#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <string_view>

#include "Frame/Host/Un_aes.h"

namespace zanhost {

/// The installation's cipher: AES-256-SIV, deterministic and authenticated. A cipher text is printable: the
/// mark of the format ("zs1:"), then base64. Not to be used by two threads at once.
class TSivCipher final : public zanrole::TCipher {
 public:
  static constexpr std::size_t kKeySize = 64;
  using TKey = std::array<unsigned char, kKeySize>;

  explicit TSivCipher(const TKey& key) : FKey(key) {}
  /// Reads the key of an installation; makes the file, with a random key and readable by its owner alone,
  /// when there is none. Raises ECipherError when the file cannot be read or made, is damaged, or is open to
  /// others.
  explicit TSivCipher(const std::filesystem::path& keyFile);
  ~TSivCipher() override;
  TSivCipher(const TSivCipher&) = delete;
  TSivCipher& operator=(const TSivCipher&) = delete;

  std::string Encrypt(std::string_view plain) override;
  std::string Decrypt(std::string_view cipher) override;

 private:
  TKey FKey;
};

/// Where an installation keeps its key.
std::filesystem::path KeyFileOf(const std::filesystem::path& folder);

}  // namespace zanhost
