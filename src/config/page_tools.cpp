#include "config/page_tools.h"

#include <algorithm>

#include "text/text_rules.h"

namespace trunvex {

bool PageTools::connected() const {
    if (!sender.isConnected()) dialogs.info(notConnectedText);
    return sender.isConnected();
}

bool PageTools::mayLose(RecordForm& form) const {
    if (!form.edited()) return true;
    const auto answer =
        dialogs.message({"What was changed here is not written to the gateway yet.\r\nRead again and lose the changes?",
                         "Refresh", ButtonSet::YesNo, BoxIcon::Question, 2});
    if (answer != Button::Yes) return false;
    form.undo();
    return true;
}

bool PageTools::mayRefresh(const std::string& key, RecordForm& form) const {
    if (key.empty())
        dialogs.info("Please select first the port in the ports list.");
    else if (!sender.isConnected())
        dialogs.info("Please connect first the gateway.");
    else
        return mayLose(form);
    return false;
}

bool PageTools::mayWrite(const std::string& key) const {
    if (!connected()) return false;
    if (key.empty()) dialogs.info("You must select Port\\Sim first .");
    return !key.empty();
}

bool PageTools::isRead(const RecordForm& form) const {
    if (!form.known()) tell("Nothing was read here yet. Read it first, so that nothing unknown is overwritten.");
    return form.known();
}

bool PageTools::anyMarked(const std::deque<CheckField>& boxes) const {
    if (std::any_of(boxes.begin(), boxes.end(), [](const CheckField& box) { return box.checked(); })) return true;
    tell("Nothing is marked to be written to the group. Mark the fields that the write is to include.");
    return false;
}

bool PageTools::write(std::string line, std::string caption, const char* firstText) const {
    WriteBatch batch;
    batch.firstText = firstText;
    batch.items.push_back(command(std::move(line), std::move(caption)));
    return writes.start(std::move(batch));
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
