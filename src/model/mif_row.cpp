#include "model/mif_row.h"

namespace kestrel {

void MifField::AppendTo(std::string& row) const {
  if (Quoted) {
    Append(row, {"\"", Text, "\""});
  } else {
    row.append(Number);
  }
}

std::string MifRow(std::initializer_list<MifField> fields) {
  std::string row = "\t";
  char separator = '{';
  for (const MifField& field : fields) {
    row.push_back(separator);
    field.AppendTo(row);
    separator = ',';
  }
  row.append("}\r\n");
  return row;
}

}  // namespace kestrel
