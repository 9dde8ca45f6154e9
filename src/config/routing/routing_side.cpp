#include "config/routing/routing_side.h"

namespace trunvex {

RoutingSide::RoutingSide(const PageTools& tools, const char* name, const char* undoName, const char* writeName)
    : undo(undoName, "Undo"), write(writeName, "Write"), tools_(tools), name_(name),
      word_(tools.writes, tools.clock, [this](const std::string& word) { tell(word); }) {
    undo.setEnabled(false);
    undo.pressed().connect([this] { records.undo(); });
    records.changed().connect([this] { undo.setEnabled(records.edited()); });
    write.pressed().connect([this] { send(); });
    word_.done().connect([this](bool whole) {
        if (whole && whole_) whole_();
    });
}

void RoutingSide::send() {
    if (!tools_.connected()) return;
    records.clearProblems();
    auto built = build();
    if (!built.fault.word.empty()) {
        built.fault.orTell(tools_.dialogs);
        return;
    }
    if (!built.items.empty()) start(std::move(built), name_);
}

void RoutingSide::start(RoutingBatch built, const std::string& name) {
    WriteBatch batch;
    batch.items = std::move(built.items);
    batch.firstText = firstText_;
    if (!tools_.writes.start(std::move(batch))) return;
    word_.expect(name, std::move(built.names));
    whole_ = std::move(built.whole);
    writeStarted.emit();
}

}  // namespace trunvex
