#pragma once

#include <functional>

class QHeaderView;

namespace trunvex {

// The menu of a table's headings hides columns and brings them back; what was chosen is told, to be kept.
void offerColumns(QHeaderView* header, std::function<void(int column, bool shown)> chosen = {});

}  // namespace trunvex
