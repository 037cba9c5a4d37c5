#pragma once

#include <memory>
#include <typeindex>
#include <vector>

#include "Frame/Host/Host.h"

namespace zanrole {

/// Everything the module remembers for one login: singletons, unit globals, caches. One session is current on
/// a thread at a time; nothing of the module's state lives outside a session.
class ZAN_EXPORT TSession {
 public:
  /// `host` must outlive the session.
  explicit TSession(THostSession& host) : FHost(&host) {}
  /// Runs finalisation: what the session holds is freed in reverse order of creation.
  ~TSession();
  TSession(const TSession&) = delete;
  TSession& operator=(const TSession&) = delete;

  /// Raises EAssertionFailed when no session is current on this thread.
  static TSession& Current();
  /// Makes a session current on this thread, or none. Gives the one that was.
  static TSession* MakeCurrent(TSession* session) noexcept;

  THostSession& Host() { return *FHost; }

  /// The session's one `T`, made by its default constructor at first use. The reference lives as long as the
  /// session.
  template <typename T>
  T& Slot();
  /// The session's one `T` if it was made already, otherwise null.
  template <typename T>
  T* FindSlot();

 private:
  struct TAnySlot {
    virtual ~TAnySlot() = default;
  };
  template <typename T>
  struct TTypedSlot final : TAnySlot {
    T Value;
  };
  struct TEntry {
    std::type_index Type;
    std::unique_ptr<TAnySlot> Slot;
  };

  THostSession* FHost;

  /// In order of creation. A session holds few slots, so looking through them is as fast as an index.
  std::vector<TEntry> FSlots;
};

template <typename T>
T* TSession::FindSlot() {
  for (const TEntry& entry : FSlots) {
    if (entry.Type == typeid(T)) return &static_cast<TTypedSlot<T>*>(entry.Slot.get())->Value;
  }
  return nullptr;
}

template <typename T>
T& TSession::Slot() {
  if (T* existing = FindSlot<T>()) return *existing;
  auto slot = std::make_unique<TTypedSlot<T>>();
  T& value = slot->Value;
  FSlots.push_back({typeid(T), std::move(slot)});
  return value;
}

/// The module-wide services of the host. Raises EAssertionFailed before they were handed over.
THostServices& HostServices();
/// Takes the host's services; null takes them away. The pointer is not owned.
void SetHostServices(THostServices* services) noexcept;

// Short names for what the logic asks of the current session's host.
inline TSystemInfo& SystemInfo() { return TSession::Current().Host().SystemInfo(); }
inline bool isBuilder() { return TSession::Current().Host().IsBuilder(); }
inline TDatabaseServices& Databases() { return TSession::Current().Host().Databases(); }
inline TFormHost& FormHost() { return TSession::Current().Host().Forms(); }

/// The operator as rows record him: `OID` and name of the login, or -1 and "[ZanBuilder]" in the designer.
int OperatorOID();
std::string OperatorName();

}  // namespace zanrole
