#pragma once

#include <array>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "fields/fields.h"
#include "fields/tree_field.h"
#include "model/port_detection.h"
#include "model/settings_records.h"
#include "model/tree_item.h"

namespace trunvex {

// The window that asks for a group: a tree of the groups alone.
class frmSelectGroup {
public:
    explicit frmSelectGroup(const std::vector<TreeItem>& items);
    // OK: what is selected becomes the result, "PRT" + two digits; Cancel leaves it empty.
    void accept();

    TreeField tvGroups{"tvSelectGroups"};
    std::string result;
};

// The gateway's hardware as a tree, and the operator's grouping of it: the list gTreeItems and the two views on it.
class PortTree {
public:
    enum Views { First = 0, Second = 1, Both = 2 };

    PortTree(Session& session, SharedTables& tables, PortDetection& detection, SettingsRecords& records);

    // Clears and refills the views from gTreeItems and gPorts; with `load` the group file is read first.
    void build(Views which, bool load);

    // The gateway has told who it is: its groups are read, once a session. A gateway without a group file keeps the
    // groups that were made before it was known.
    void takeIdentity();
    // A new connection begins: nothing is known of the gateway behind it.
    void forget();
    // The gateway has told its modules: the views follow.
    void takePorts();

    // An empty path means the gateway's own group file. False when it could not be written; the operator is told.
    bool save(const std::filesystem::path& path);
    // Replaces the list. False, and the list as it was, for a file that is no group file; the operator is told. A
    // missing file leaves an empty list.
    bool load(const std::filesystem::path& path);

    // "Groups", when what the operator has made of them was not saved; and those that wait for a gateway that is away.
    std::vector<std::string> unsaved(bool parkedToo) const;
    // The operator has agreed to lose them.
    void dropChanges() { changed_ = changed_ && !ofThisSession(); }

    // "GSM", "CDM" or "ERR"; throws std::out_of_range for an address that does not exist.
    std::string moduleType(std::string_view key) const;
    // Keys of the items whose parent this is, in list order, at most 201.
    std::vector<std::string> children(std::string_view key) const;
    // The ports of a group, by any key of the group.
    std::vector<std::string> ports(std::string_view groupKey) const;
    // The same without those whose module the gateway has not found: nobody answers there.
    std::vector<std::string> workingPorts(std::string_view groupKey) const;
    // The numbers of ports, for the operator: "1, 2, 17".
    static std::string listed(const std::vector<std::string>& ports);
    // The text of the item, for the operator; "Port n" or "Port n SIM s" for one that is not in the list.
    std::string captionOf(std::string_view key) const;
    // False for an empty text or an unknown key.
    bool rename(std::string_view key, const std::string& text);
    void deleteItem(std::string_view key);
    // Attaches a port to a group ("PRT" or "GRP" key): what a drop does. False when that is not possible.
    bool movePort(std::string_view portKey, std::string_view groupKey);

    // The fan-out of a group write: a command for each member that the builder makes a line for; a builder that refuses
    // leaves its member out. The members are SIMs for "SMM" + nn + s, ports for another key of the group.
    using Builder = std::function<std::string(const std::string& key)>;
    std::vector<QueueItem> groupWrite(std::string_view key, const Builder& build) const;

    // Asks for the group; the screens fill it in.
    std::function<void(frmSelectGroup& window)> showSelectGroup;
    // The operator is to edit the name of the selected node in place; the answer goes to rename().
    sigc::signal<void(const std::string& key)> editName;

    std::array<TreeField, 2> tvGroups{TreeField("tvGroups_0"), TreeField("tvGroups_1")};
    ActionField cmdCreateGroup{"cmdCreateGroup", "New group"};
    ActionField cmdDeleteGroup{"cmdDeleteGroup", "Delete"};
    ActionField cmdRenameGroup{"cmdRenameGroup", "Rename"};
    ActionField cmdMoveToGroup{"cmdMoveToGroup", "Move to group..."};
    ActionField cmdSaveGroups{"cmdSaveGroups", "Save"};
    ActionField cmdExportGroups{"cmdExportGroups", "Export..."};
    ActionField cmdImportGroups{"cmdImportGroups", "Import..."};
    ActionField cmdResetTree{"cmdResetTree", "Remove all groups"};
    ActionField cmdCollapse{"cmdCollapse", "Collapse"};
    ActionField cmdExpand{"cmdExpand", "Expand"};
    ActionField cmdRefreshTree{"cmdRefreshTree", "Rebuild"};
    // Check and uncheck every port of the first view (0, 1) and of the second (2, 3).
    std::array<ActionField, 4> ucLinkSelectPorts{
        ActionField("ucLinkSelectPorts_0", "Select all ports"), ActionField("ucLinkSelectPorts_1", "Select none"),
        ActionField("ucLinkSelectPorts_2", "Select all ports"), ActionField("ucLinkSelectPorts_3", "Select none")};
    // The board index - 1 of the port to be selected in both views.
    ChoiceField cmbGRPSelectPort{"cmbGRPSelectPort"};

private:
    TreeField& view() { return tvGroups[1]; }  // the one on which groups are edited
    TreeItem* item(std::string_view key);
    void buildView(TreeField& view, bool last);
    std::string successor(const TreeField& view, const std::string& selected) const;
    void addGroups(TreeField& view);
    void addMembers(TreeField& view);
    void addFreePorts(TreeField& view, bool last);
    void addSims(TreeField& view, PortAddress port);
    void completeList(PortAddress port);
    void countMember(TreeField& view, const std::string& groupKey);
    void createGroup();
    void deleteSelected();
    void renameSelected();
    void moveChecked();
    // True while the list is that of the gateway at the line's end, or neither has a name.
    bool ofThisSession() const { return loadedFor_ == session_.gESN; }
    // The operator has changed the grouping: the views follow.
    void regrouped();
    Ticket forThisList() const;
    void saveGroups();
    void exportGroups();
    void importGroups();
    void resetTree();
    void selectPort();

    Dialogs& dialogs_;
    std::string loadedFor_;                                // the gateway whose groups the list holds
    bool changed_ = false;                                 // by the operator, and not saved
    std::map<std::string, std::vector<TreeItem>> parked_;  // lists of lost sessions that were not saved, by gateway
    bool saveWhenKnown_ = false;  // the operator has asked for it before the gateway told who it is
    SharedTables& tables_;
    SessionState& session_;
    CommandSender& sender_;
    std::function<void(const std::string&)> tell_;
};

}  // namespace trunvex
