#include "config/record_page.h"

namespace trunvex {

void RecordPage::addForm(RecordForm& form, const char* name, const Buttons& buttons, std::vector<QueueItem> batch,
                         std::function<std::string()> build) {
    form.turnTo(name);
    auto& sheet = sheets_.emplace_back(Sheet{form, buttons, std::move(batch), std::move(build), name,
                                             std::make_unique<WriteWord>(tools_.writes, tools_.clock, form)});
    form.changed().connect([&sheet] { sheet.buttons.undo.setEnabled(sheet.form.edited()); });
    buttons.undo.setEnabled(form.edited());
    buttons.undo.pressed().connect([&sheet] { sheet.form.undo(); });
    buttons.read.pressed().connect([this, &sheet] {
        if (tools_.connected() && tools_.mayLose(sheet.form)) tools_.read(traits.key, sheet.batch, readBudgetMs);
    });
    buttons.write.pressed().connect([this, &sheet] { write(sheet); });
}

void RecordPage::write(Sheet& sheet) {
    if (!mayWrite(sheet.form)) return;
    const auto line = sheet.build();
    if (line.empty() || !tools_.write(line, sheet.name, "send data : ")) return;
    sheet.word->expect(line, sheet.name);
    writing(line);
    writeStarted.emit();
}

void RecordPage::holdWrites(bool held) {
    for (auto& sheet : sheets_) sheet.buttons.write.setEnabled(!held);
}

std::vector<std::string> RecordPage::unwritten(Edits which) const {
    std::vector<std::string> names;
    for (const auto& sheet : sheets_)
        for (auto& name : unwrittenOf(sheet.form, which == Edits::All, std::identity()))
            names.push_back(std::move(name));
    return names;
}

void RecordPage::discard() {
    for (auto& sheet : sheets_) sheet.form.forgetAll();
}

void RecordPage::identified() {
    for (auto& sheet : sheets_) sheet.form.resume(session_.state.gESN);
}

bool RecordPage::mayWrite(const RecordForm& form) const {
    if (!tools_.connected()) return false;
    if (!form.known()) tools_.tell(nothingReadText);
    return form.known();
}

}  // namespace trunvex
