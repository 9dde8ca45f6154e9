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
    const bool agreed =
        dialogs.agreed(Button::Yes,
                       {"What was changed here is not written to the gateway yet.\r\nRead again and lose the changes?",
                        "Refresh", ButtonSet::YesNo, BoxIcon::Question, 2},
                       forSession(session) && Ticket::of([&form] { return std::pair(form.key(), form.known()); }));
    if (!agreed) return false;
    form.undo();
    return true;
}

bool PageTools::write(std::string line, std::string caption, const char* firstText) const {
    WriteBatch batch;
    batch.firstText = firstText;
    batch.items.push_back(command(std::move(line), std::move(caption)));
    return writes.start(std::move(batch));
}

void PageTools::read(const std::string& owner, std::vector<QueueItem> batch, int budgetMs) const {
    reads.whenFree(owner, [this, batch = std::move(batch), budgetMs] { reads.start(batch, budgetMs); });
}

BuiltLine BuiltLine::change(const std::string& key, std::span<const std::string> fields) {
    BuiltLine built;
    built.line = "C_" + key + ",";
    for (const auto& field : fields.subspan(1)) built.line += field + ",";
    return built;
}

std::string BuiltLine::orTell(Dialogs& dialogs) const {
    if (word.empty()) return line;
    if (field) field->setProblem(word);
    dialogs.tell({word, title, ButtonSet::Ok, BoxIcon::Information});
    return {};
}

std::vector<std::string> unwrittenOf(const RecordForm& form, bool parkedToo,
                                     const std::function<std::string(const std::string&)>& nameOf) {
    std::vector<std::string> names;
    for (const auto& key : form.unwritten()) names.push_back(nameOf(key));
    if (!parkedToo) return names;
    for (const auto& [key, gateway] : form.parked()) names.push_back(nameOf(key) + " of gateway " + escaped(gateway));
    return names;
}

Fields fieldsOf(std::string_view line) { return splitString(mid(line, 6), ','); }

bool fitsField(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return c >= ' ' && c <= '~' && c != ',' && c != '"' && c != '\''; });
}

}  // namespace trunvex
