#include "tools/kestrel/fault_list.h"

#include "base/text.h"
#include "catalog/type_catalog.h"

namespace kestrel {

namespace {

using catalog::Fault;
using catalog::FaultSeverity;

void AppendPlace(std::string& line, const Fault& fault) {
  if (!fault.Place.Offset) {
    line.append("entry point");
    return;
  }
  Append(line, {Hex(*fault.Place.Offset, 4), "h"});
  if (fault.Place.Type) {
    const std::string_view name = catalog::GetTypeName(*fault.Place.Type);
    Append(line, {", type ", Decimal(*fault.Place.Type), name.empty() ? "" : ", ", name});
  }
}

}  // namespace

void AddWalkFaults(catalog::FaultList& faults, const WalkComparison& comparison) {
  const auto add = [&](const StructurePlace& place, const char* kind, const char* text) {
    faults.Add({place.Offset, place.Type, place.Handle}, FaultSeverity::Remark, {kind}, text);
  };
  for (const StructurePlace& place : comparison.Lost) {
    add(place, "lost", "the report and the MIF document lose it");
  }
  for (const StructurePlace& place : comparison.CutShort) {
    add(place, "cut short", "the report and the MIF document take it to end too early");
  }
  for (const StructurePlace& place : comparison.Invented) {
    std::string text = "the report and the MIF document see a structure of type ";
    Append(text, {Decimal(place.Type), " where none is"});
    faults.Add({.Offset = place.Offset}, FaultSeverity::Remark, {"invented"}, std::move(text));
  }
}

std::string ListFaults(const catalog::FaultList& faults) {
  std::string list;
  for (const Fault& fault : faults.GetFaults()) {
    AppendPlace(list, fault);
    if (fault.More != 0) {
      Append(list, {", and ", Decimal(fault.More), " more"});
    }
    Append(list, {fault.Severity == FaultSeverity::Error ? ": error: " : ": remark: ", fault.Text,
                  "\r\n"});
  }
  return list;
}

}  // namespace kestrel
