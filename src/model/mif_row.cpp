#include "model/mif_row.h"

namespace kestrel {

void MifField::AppendTo(std::string& row) const {
  if (Quoted) {
    Append(row, {"\"", Text, "\""});
  } else {
    row.append(Value);
  }
}

std::string MifRow(std::initializer_list<MifField> fields) {
  std::string row;
  std::string_view separator = "\t{";
  for (const MifField& field : fields) {
    row.append(separator);
    field.AppendTo(row);
    separator = ",";
  }
  row.append("}\r\n");
  return row;
}

}  // namespace kestrel
