#include "config/page_tools.h"

#include <algorithm>

#include "text/text_rules.h"

namespace trunvex {

bool PageTools::mayLose(RecordForm& form) const {
    if (!form.edited()) return true;
    const auto answer =
        dialogs.message({"What was changed here is not written to the gateway yet.\r\nRead again and lose the changes?",
                         "Refresh", ButtonSet::YesNo, BoxIcon::Question, 2});
    if (answer != Button::Yes) return false;
    form.undo();
    return true;
}

void PageTools::read(std::vector<QueueItem> batch, int budgetMs) const {
    reads.whenFree("record", [this, batch = std::move(batch), budgetMs] { reads.start(batch, budgetMs); });
}

std::string BuiltLine::orTell(Dialogs& dialogs) const {
    if (word.empty()) return line;
    if (field) field->setProblem(word);
    dialogs.message({word, title, ButtonSet::Ok, BoxIcon::Information});
    return {};
}

Fields fieldsOf(std::string_view line) { return splitString(mid(line, 6), ','); }

bool fitsField(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return c >= ' ' && c <= '~' && c != ',' && c != '"' && c != '\''; });
}

}  // namespace trunvex
