#include "Party/PositionMap.h"

#include <algorithm>

#include "Frame/Commlib.h"
#include "Frame/Dialects.h"
#include "Frame/Session.h"

namespace zanrole {

namespace {

constexpr const char* kDeleteRow = "delete from PositionMapH where djlsh = ";

constexpr const char* kUpdateUpperPosition = "update PositionMapH set UpperPosition = %d where djlsh = %d";

constexpr const char* kInsertRow =
    "insert into PositionMapH (Djlsh, PositionID, PositionName, UpperPosition, MapID) "
    "values(%d, %d, '%s', %d, %d)";

constexpr const char* kRenameMap = "Update PositionMapH set PositionName = %s where djlsh = %d";

int NewMapRowID() {
  int id = 0;
  while (id <= 0) id = SystemInfo().NewDjLsh("PositionMap");
  return id;
}

}  // namespace

TPositionMapRows::TPositionMapRows(TDataSet& dataSet) {
  for (dataSet.First(); !dataSet.Eof(); dataSet.Next()) {
    FRows[dataSet.FieldByName("UpperPosition").AsInteger()].push_back(
        {dataSet.FieldByName("Djlsh").AsInteger(), dataSet.FieldByName("PositionID").AsInteger(),
         dataSet.FieldByName("PositionName").AsString()});
  }
}

const std::vector<TPositionMapRows::TRow>& TPositionMapRows::Below(int upperPosition) const {
  static const std::vector<TRow> kNone;
  const auto rows = FRows.find(upperPosition);
  return rows == FRows.end() ? kNone : rows->second;
}

TPositionMapItem& TPositionMapItem::AddChild(TPositionEntity& APosition) {
  FChildren.push_back(std::make_unique<TPositionMapItem>(*FOwner, this, &APosition));
  return *FChildren.back();
}

void TPositionMapItem::AcceptChild(TPositionMapItem& AItem) {
  TPositionMapItem& place = AddChild(*AItem.FEntity);
  place.FID = AItem.FID;
  std::swap(place.FChildren, AItem.FChildren);
  AItem.FParent->RemoveChild(AItem);
}

void TPositionMapItem::DeleteChild(TPositionMapItem& AChild) {
  AChild.ClearChildren();
  ExecStatement(*TDbProviderFactory::GetQuery(), kDeleteRow + std::to_string(AChild.FID));
  RemoveChild(AChild);
}

void TPositionMapItem::ClearChildren() {
  while (!FChildren.empty()) DeleteChild(*FChildren.front());
}

void TPositionMapItem::RemoveChild(const TPositionMapItem& AChild) {
  const auto place = std::find_if(FChildren.begin(), FChildren.end(),
                                  [&](const auto& child) { return child.get() == &AChild; });
  FOwner->FLeftPlaces.push_back(std::move(*place));
  FChildren.erase(place);
}

TPositionMapItem* TPositionMapItem::DeepFind(int APositionID) {
  if (FEntity && FEntity->ID == APositionID) return this;
  for (const auto& child : FChildren) {
    if (TPositionMapItem* found = child->DeepFind(APositionID)) return found;
  }
  return nullptr;
}

void TPositionMapItem::LoadChildren(const TPositionMapRows& dataset) {
  FChildren.clear();
  for (const TPositionMapRows::TRow& row : dataset.Below(FID)) {
    TPositionEntity* const entity = FOwner->FOwner->FindEntity(row.PositionID);
    if (!entity) continue;
    TPositionMapItem& child = AddChild(*entity);
    child.FID = row.Djlsh;
    child.FChanged = false;
  }
  for (const auto& child : FChildren) child->LoadChildren(dataset);
}

std::string TPositionMapItem::InsertStatement() const {
  // The name goes in as it stands: a quote in it is not doubled.
  return Format(kInsertRow, {FID, FEntity ? FEntity->ID : -1, FEntity ? FEntity->name : FOwner->FName,
                             FParent ? FParent->FID : -1, FOwner->MapID()});
}

void TPositionMapItem::ProcessUpdate(TStringList& ASQLBuffer) {
  if (FID > 0) {
    ASQLBuffer.Add(Format(kUpdateUpperPosition, {FParent ? FParent->FID : -1, FID}));
  } else {
    FID = NewMapRowID();
    ASQLBuffer.Add(InsertStatement());
  }
  for (const auto& child : FChildren) child->ProcessUpdate(ASQLBuffer);
}

void TPositionMapItem::ChangeUpdated() {
  FChanged = false;
  for (const auto& child : FChildren) child->ChangeUpdated();
}

int TPositionMap::MapID() const { return FRoot ? FRoot->FID : -8; }

TPositionMapItem& TPositionMap::Append(TPositionMapItem* AParent, TPositionEntity& APosition) {
  return (AParent ? *AParent : *FRoot).AddChild(APosition);
}

TPositionMapItem* TPositionMap::Find(int APositionID) {
  return FRoot ? FRoot->DeepFind(APositionID) : nullptr;
}

void TPositionMap::ProcessUpdate(TStringList& ASQLBuffer) {
  if (FRoot) FRoot->ProcessUpdate(ASQLBuffer);
  if (FChanged) ASQLBuffer.Add(Format(kRenameMap, {QuotedStr(FName), MapID()}));
}

void TPositionMap::ChangeUpdated() {
  FChanged = false;
  if (FRoot) FRoot->ChangeUpdated();
}

}  // namespace zanrole
