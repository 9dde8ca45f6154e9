#include "screens/kit/grid_editor.h"

#include <QAbstractItemModelTester>
#include <QClipboard>

#include "fields/record_form.h"
#include "screens/kit/table_view.h"
#include "screens/screens_bench.h"

namespace trunvex {
namespace {

class GridOnScreen : public testing::Test {
protected:
    GridOnScreen() {
        form.add(grid);
        form.turnTo("table");
        form.take({{&grid, GridField::valueOf({{"10", "b"}, {"9", "a"}})}});
        editor.resize(400, 300);
        editor.show();
        editor.activateWindow();
        [[maybe_unused]] const bool active = QTest::qWaitForWindowActive(&editor);
        table.setFocus();
        go(0, 0);
    }
    // Whatever key the test before has left pressed.
    void go(int row, int column) {
        table.selectionModel()->setCurrentIndex(table.model()->index(row, column), QItemSelectionModel::ClearAndSelect);
    }
    QString at(int row, int column) const { return table.model()->index(row, column).data().toString(); }
    void paste(const QString& text) {
        QApplication::clipboard()->setText(text);
        QTest::keyClick(&table, Qt::Key_V, Qt::ControlModifier);
    }
    std::string state() const {
        std::string all;
        for (auto* label : editor.findChildren<QLabel*>()) all += label->text().toStdString() + "\n";
        return all;
    }

    RecordForm form;
    GridField grid{"grid", {{"Number", 3, "0123456789", true, {}}, {"Name", 0, {}, false, {}}}, 4};
    GridEditor editor{grid, "Numbers"};
    TableView& table = editor.table();
    QAbstractItemModelTester tester{table.model(), QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(GridOnScreen, TakesTypingInACellAndInTheEmptyRow) {
    ASSERT_EQ(table.model()->rowCount(), 3) << "one is empty, for the next";
    QTest::keyClicks(&table, "1");
    auto* edit = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_NE(edit, nullptr);
    QTest::keyClicks(edit, "x2345");
    QTest::keyClick(edit, Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(grid.cell(0, 0), "123") << "no letter, and no fourth digit";
    EXPECT_TRUE(table.model()->index(0, 0).data(TableModel::EditedRole).toBool());
    EXPECT_FALSE(table.model()->index(0, 1).data(TableModel::EditedRole).toBool());
    table.setFocus();
    go(2, 1);
    QTest::keyClicks(&table, "n");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(grid.rowCount(), 3u);
    EXPECT_EQ(grid.standing(), InputField::Standing::Edited);
    table.setFocus();
    QTest::keyClick(&table, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(grid.rowCount(), 2u);
    QTest::keyClick(&table, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(grid.standing(), InputField::Standing::AsRead);
    grid.setEnabled(false);
    EXPECT_FALSE(table.model()->index(0, 0).flags().testFlag(Qt::ItemIsEditable));
}

TEST_F(GridOnScreen, TakesRowsOfASpreadsheetAndGivesThemBack) {
    go(1, 0);
    paste("7\tx\r\n1234\ty\r\n8\tz\r\n9\tw\r\n");
    EXPECT_EQ(grid.rowCount(), 4u);
    EXPECT_EQ(table.model()->rowCount(), 4) << "no room for an empty one";
    EXPECT_THAT(state(), HasSubstr("Rows that did not fit: 1"));
    EXPECT_THAT(state(), HasSubstr("row 3: Number: at most 3"));
    EXPECT_FALSE(table.model()->index(2, 0).data(TableModel::ProblemRole).toString().isEmpty());
    table.edit(table.model()->index(2, 0));
    auto* edit = table.findChild<QLineEdit*>();
    EXPECT_EQ(edit->text(), "1234") << "what is too long is not cut by being looked at";
    QTest::keyClick(edit, Qt::Key_Escape);
    table.setFocus();
    table.selectAll();
    QTest::keyClick(&table, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "10\tb\n7\tx\n1234\ty\n8\tz\n");
    QTest::keyClick(&table, Qt::Key_Delete);
    EXPECT_EQ(grid.rowCount(), 0u) << "of whole rows the rows go";
    EXPECT_EQ(table.model()->rowCount(), 1);
    QTest::keyClick(&table, Qt::Key_Z, Qt::ControlModifier);
    go(3, 1);
    QTest::keyClick(&table, Qt::Key_Delete);
    EXPECT_EQ(grid.row(3), (TextRow{"8", ""}));
    QTest::keyClick(&table, Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(grid.rowCount(), 3u);
}

TEST_F(GridOnScreen, SortsAndFinds) {
    table.sortByColumn(0, Qt::AscendingOrder);
    EXPECT_EQ(at(0, 0), "9");
    QTest::keyClick(&table, Qt::Key_F, Qt::ControlModifier);
    auto* sought = editor.findChild<QLineEdit*>();
    ASSERT_EQ(QApplication::focusWidget(), sought);
    QTest::keyClicks(sought, "B");
    QTest::keyClick(sought, Qt::Key_Return);
    EXPECT_EQ(table.currentIndex(), table.model()->index(1, 1));
    QTest::keyClicks(sought, "y");
    QTest::keyClick(sought, Qt::Key_Return);
    EXPECT_THAT(state(), HasSubstr("is not in the table"));
    QTest::keyClick(sought, Qt::Key_Escape);
    EXPECT_EQ(QApplication::focusWidget(), &table);
}

}  // namespace
}  // namespace trunvex
