#include "Domain/DomainRecords.h"

namespace zanrole {

TDomainRecord& TDomainRecords::Put(TDomainRecord record) {
  const int id = record.ID;
  return FRecords.insert_or_assign(id, std::move(record)).first->second;
}

TDomainRecord* TDomainRecords::Find(int id) {
  const auto found = FRecords.find(id);
  return found == FRecords.end() ? nullptr : &found->second;
}

}  // namespace zanrole
