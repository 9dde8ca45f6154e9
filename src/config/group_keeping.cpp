// Where the groups are kept: the file of each gateway, export and import.
#include "config/group_file.h"
#include "config/port_tree.h"
#include "platform/durable_file.h"
#include "text/text_rules.h"

#include <utility>

namespace trunvex {

namespace {

constexpr const char* groupFilter = "Groups Data (*.grp)|*.grp";
constexpr const char* groupExtension = ".grp";

}  // namespace

bool PortTree::save(const std::filesystem::path& path) {
    const auto target = path.empty() ? std::filesystem::path(session_.gGroupsFile) : path;
    try {
        replaceFile(target, group_file::encode(tables_.gTreeItems));
        if (path.empty()) changed_ = false;
        return true;
    } catch (const std::exception& error) {
        tell_("The groups can't be saved: " + std::string(error.what()));
        return false;
    }
}

bool PortTree::load(const std::filesystem::path& path) {
    const auto source = path.empty() ? std::filesystem::path(session_.gGroupsFile) : path;
    std::error_code error;
    if (!std::filesystem::exists(source, error)) {
        tables_.gTreeItems.clear();
        return true;
    }
    auto items = group_file::read(source);
    if (!items) {
        tell_(source.filename().string() + " is no group file that can be read; the groups stay as they are.");
        return false;
    }
    tables_.gTreeItems = std::move(*items);
    return true;
}

std::vector<std::string> PortTree::unsaved(bool parkedToo) const {
    std::vector<std::string> names;
    const auto of = [](const std::string& gateway) { return "Groups of gateway " + escaped(gateway); };
    if (changed_ && ofThisSession()) names.emplace_back("Groups");
    if (!parkedToo) return names;
    if (changed_ && !ofThisSession()) names.push_back(of(loadedFor_));
    for (const auto& list : parked_) names.push_back(of(list.first));
    return names;
}

// Groups that belong to no gateway yet stay for the one that comes.
void PortTree::forget() {
    saveWhenKnown_ = false;
    for (auto& tree : tvGroups) tree.clear();
    if (changed_ && loadedFor_.empty()) return;
    if (changed_) parked_[loadedFor_] = tables_.gTreeItems;
    changed_ = false;
    tables_.gTreeItems.clear();
    loadedFor_.clear();
}

void PortTree::takeIdentity() {
    std::error_code error;
    const bool isNew = loadedFor_ != session_.gESN;
    const bool saves = std::exchange(saveWhenKnown_, false) && isNew;
    if (isNew && !loadedFor_.empty()) forget();  // they are another gateway's
    const bool own = isNew && changed_;          // made before the gateway was known
    loadedFor_ = session_.gESN;
    const bool hasFile = std::filesystem::exists(session_.gGroupsFile, error);
    if ((saves || own) && hasFile) {
        tell_(
            "This gateway has groups that were saved before. They were not loaded, so that yours stay: Save puts yours "
            "in their place.");
    } else if (saves) {
        if (save({})) tell_("The groups are saved.");
    } else if (own) {
        // They are this gateway's now, to be saved.
    } else if (const auto unsaved = parked_.extract(session_.gESN)) {
        tables_.gTreeItems = unsaved.mapped();
        changed_ = true;
    } else if (isNew && hasFile) {
        load({});
        changed_ = false;
    }
    if (session_.gGotActivePorts) build(Both, false);
}

void PortTree::takePorts() { build(Both, tables_.gTreeItems.empty()); }

// Behind a box another gateway may bring its own groups.
Ticket PortTree::forThisList() const {
    return Ticket::of([this] { return loadedFor_; });
}

void PortTree::saveGroups() {
    if (!sender_.isConnected()) {
        if (dialogs_.agreed(Button::Yes,
                            {"You must connecting to the gateway to save the groups!\r\n"
                             "Do you want to export the groups to external file?",
                             "Save", ButtonSet::YesNo, BoxIcon::Question},
                            forThisList()))
            exportGroups();
    } else if (session_.gESN.empty()) {
        if (dialogs_.agreed(Button::Yes,
                            {"Error gateway ESN number\r\n"
                             "Do you want to get the right ESN numbet from the gateway now?",
                             "Save", ButtonSet::YesNo, BoxIcon::Question},
                            forSession(session_))) {
            saveWhenKnown_ = true;
            sender_.SendCommand("R_ESN");
        }
    } else if (save({})) {
        load({});
        build(Both, false);
        tell_("The groups are saved.");
    }
}

void PortTree::exportGroups() {
    const std::filesystem::path path =
        dialogs_.saveFile("Export groups", groupFilter, std::string("groups") + groupExtension,
                          Dialogs::AskReplace::Dialog, forThisList());
    if (path.empty()) return;
    save(path);
}

void PortTree::importGroups() {
    const auto path = dialogs_.openFile("Import groups", groupFilter, forThisList());
    if (path.empty()) return;
    std::error_code error;
    if (!std::filesystem::exists(path, error))
        tell_(path + " does not exist.");
    else if (load(path))
        regrouped();
}

void PortTree::resetTree() {
    if (!dialogs_.agreed(Button::Ok,
                         {"this action will remove all the groups that you was created!!, are you want to continue?",
                          "Reset", ButtonSet::OkCancel, BoxIcon::Warning, 2},
                         forThisList()))
        return;
    tables_.gTreeItems.clear();
    regrouped();
}

}  // namespace trunvex
