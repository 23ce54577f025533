// What a person who can't see the screen is told: the accessibility tree of the real program, read back.
#include "frame/form.h"
#include "host_qt/hands.h"
#include "hosts/qt/accessible.h"
#include "hosts/qt/device.h"
#include "hosts/qt/start.h"
#include "platform/files.h"
#include "program/door.h"
#include "resources/menus.h"
#include "state/state.h"
#include <QAccessible>
#include <QApplication>
#include <QLineEdit>
#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace little;

namespace {

std::vector<std::string> told; // events since the last look

const char *WordOf(QAccessible::Role role) {
    switch (role) {
    case QAccessible::Heading:
        return "heading ";
    case QAccessible::ColumnHeader:
        return "title ";
    case QAccessible::ListItem:
        return "row ";
    case QAccessible::PageTab:
        return "tab ";
    case QAccessible::PushButton:
    case QAccessible::ButtonMenu:
        return "button ";
    case QAccessible::CheckBox:
        return "check ";
    case QAccessible::ComboBox:
        return "combo ";
    case QAccessible::EditableText:
    case QAccessible::SpinBox:
        return "box ";
    case QAccessible::StaticText:
        return "text ";
    case QAccessible::Slider:
        return "slider ";
    case QAccessible::ProgressBar:
        return "progress ";
    case QAccessible::Graphic:
        return "picture ";
    case QAccessible::List:
    case QAccessible::Table:
    case QAccessible::Tree:
        return "list ";
    default:
        return "";
    }
}

std::string Words(QAccessibleInterface *one) {
    const QAccessible::State now = one->state();
    const QAccessibleValueInterface *const value = now.disabled ? nullptr : one->valueInterface();
    const bool steps = one->role() == QAccessible::Slider;
    return WordOf(one->role()) + one->text(QAccessible::Name).toStdString() + (now.selected ? " (selected)" : "") +
           (now.checked ? " (on)" : "") + (now.disabled ? " (off)" : "") +
           (steps ? " = " + value->currentValue().toString().toStdString() : "");
}

// Every object below one that is seen and has a role of the list, in reading order.
void Walk(QAccessibleInterface *one, std::vector<std::string> *to, int depth = 0) {
    ASSERT_LT(depth, 12);
    for (int i = 0; i < one->childCount(); ++i) {
        QAccessibleInterface *const child = one->child(i);
        ASSERT_TRUE(child);
        EXPECT_EQ(one->indexOfChild(child), i) << Words(child);
        if (!child->isValid() || child->state().invisible)
            continue;
        EXPECT_EQ(child->parent() == one, true) << Words(child);
        const std::string words = Words(child);
        if (*WordOf(child->role()))
            to->push_back(words);
        Walk(child, to, depth + 1);
    }
}

std::vector<std::string> Tree() {
    std::vector<std::string> tree;
    Walk(QAccessible::queryAccessibleInterface(static_cast<QWidget *>(host.Frame)), &tree);
    return tree;
}

bool Has(const std::vector<std::string> &lines, const std::string &line) {
    return std::find(lines.begin(), lines.end(), line) != lines.end();
}

std::string All(const std::vector<std::string> &lines) {
    std::string all;
    for (const std::string &line : lines)
        all += line + "\n";
    return all;
}

QAccessibleInterface *Find(QAccessibleInterface *below, const QString &name) {
    for (int i = 0; i < below->childCount(); ++i) {
        QAccessibleInterface *const child = below->child(i);
        if (child->text(QAccessible::Name) == name)
            return child;
        if (QAccessibleInterface *const found = Find(child, name))
            return found;
    }
    return nullptr;
}

void Press(const char *name) {
    QAccessibleInterface *const found =
        Find(QAccessible::queryAccessibleInterface(static_cast<QWidget *>(host.Frame)), QString::fromUtf8(name));
    ASSERT_TRUE(found) << name;
    ASSERT_TRUE(found->actionInterface()) << name;
    found->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    Settle();
}

void Remember(QAccessibleEvent *event) {
    QAccessibleInterface *const about = event->accessibleInterface();
    if (!about)
        return;
    const char *const kind = event->type() == QAccessible::Focus         ? "focus "
                             : event->type() == QAccessible::Selection   ? "selection "
                             : event->type() == QAccessible::Alert       ? "alert "
                             : event->type() == QAccessible::NameChanged ? "name "
                                                                         : nullptr;
    if (kind)
        told.push_back(kind + Words(about));
}

void Sitting(const std::function<void()> &story) {
    QTemporaryDir root;
    SetDeviceRoot(root.path().toUtf8().constData());
    fflush(stdout);
    const pid_t child = fork();
    if (child == 0) {
        static char name[] = "speech", *words[] = {name, nullptr};
        static int count = 1;
        QApplication application(count, words);
        PrepareHost(1);
        if (WinMain() != 1)
            _exit(1);
        ShowDevice();
        host.Frame->activateWindow();
        SendSpeech = Remember;
        QAccessible::setActive(true);
        Settle();
        story();
        fflush(stdout);
        _exit(testing::Test::HasFailure());
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
}

struct ScreenWords {
    int Screen;
    std::vector<std::string> Told;
};

TEST(Speech, EachScreenIsReadWithItsRowsAmountsTabsAndTitles) {
    const ScreenWords screens[] = {
        {AccountList,
         {"heading Accounts", "text 3 entries", "button Account after", "title Name", "title Balance",
          "row Current account, 516.00 (selected)", "row red flag, Work expenses, -162.03", "row blank row",
          "tab Accounts (selected)", "tab Bin", "button Other tabs", "text Tapping the gold tab", "button Help",
          "button New", "button Tools"}},
        {TransactionList,
         {"heading Current account", "title Date", "title Name", "title Value", "title Balance",
          "tab Transactions (selected)"}},
        {GraphList, {"heading Current account", "title Value", "title Balance", "tab Graph (selected)"}},
        {RecurringList, {"title Account", "tab Recurring (selected)"}},
        {TemplateList, {"row red flag, ATM, -100.00, reconciled", "tab Templates (selected)"}},
        {BinList, {"heading Bin", "title Account", "row blank row", "tab Bin (selected)"}},
        {CategoryList, {"tab Categories (selected)", "button Main tabs"}},
        {ConversionList, {"tab Conversions (selected)", "tab Categories"}},
    };
    Sitting([&] {
        const std::vector<std::string> page = Tree();
        EXPECT_TRUE(Has(page, "heading Zentrik") && Has(page, "slider Speed of the movie = 20")) << All(page);
        EXPECT_FALSE(Has(page, "tab Accounts (selected)"));
        PressKey(Qt::Key_Escape);
        for (const ScreenWords &screen : screens) {
            PressKey(static_cast<Qt::Key>(Qt::Key_0 + screen.Screen), Qt::ControlModifier);
            const std::vector<std::string> tree = Tree();
            for (const std::string &line : screen.Told)
                EXPECT_TRUE(Has(tree, line)) << "screen " << screen.Screen << " lacks '" << line << "' among\n"
                                             << All(tree);
            EXPECT_FALSE(Has(tree, "button ")) << "something has no name";
        }
    });
}

TEST(Speech, SelectionAndMessagesAreToldAsTheyChange) {
    Sitting([] {
        PressKey(Qt::Key_Escape);
        Tree();
        told.clear();
        PressKey(Qt::Key_Down);
        EXPECT_TRUE(Has(told, "focus row Savings account, 6033.21 (selected)")) << All(told);
        EXPECT_TRUE(Has(told, "selection row Savings account, 6033.21 (selected)")) << All(told);
        told.clear();
        TapAt(60, 62 + 2 * 17 + 8);
        EXPECT_TRUE(Has(told, "focus row red flag, Work expenses, -162.03 (selected)")) << All(told);
        EXPECT_TRUE(Has(told, "alert text You've selected an account")) << All(told);
        told.clear();
        PressKey(Qt::Key_2, Qt::ControlModifier);
        EXPECT_FALSE(told.empty());
    });
}

TEST(Speech, WhatIsToldCanBeWorked) {
    Sitting([] {
        PressKey(Qt::Key_Escape);
        Press("Transactions");
        EXPECT_EQ(state.CurrentScreen, TransactionList);
        Press("Other tabs");
        EXPECT_EQ(state.TabPage, 1);
        Press("Main tabs");
        Press("Balance");
        EXPECT_EQ(state.ReconciledView, 1u);
        Press("Accounts");
        Press("Savings account, -2966.79");
        EXPECT_EQ(state.SelectedPos[AccountList], 2);
    });
}

TEST(Speech, MarksAndBoxesOfAFormAreNamedByTheirLabels) {
    Sitting([] {
        PressKey(Qt::Key_Escape);
        PressKey(Qt::Key_2, Qt::ControlModifier);
        HandleEvent({.Kind = EventKind::Command, .Code = CommandNew});
        Settle();
        const std::vector<std::string> tree = Tree();
        for (const char *line : {"button Flag, none", "button Sign of Amount, minus", "check Reconciled", "text Name",
                                 "combo Name", "combo Amount", "box Amount", "combo Fraction", "check Advanced view"})
            EXPECT_TRUE(Has(tree, line)) << line << " is not among\n" << All(tree);
        EXPECT_FALSE(Has(tree, "combo 0") || Has(tree, "box 0") || Has(tree, "box ") || Has(tree, "combo "))
            << All(tree);
        EXPECT_FALSE(Has(tree, "tab Accounts")) << "the list lies behind the form";
        EXPECT_FALSE(Has(tree, "button Sign of Amount, plus (on)"));
        Press("Sign of Amount, minus");
        EXPECT_TRUE(Has(Tree(), "button Sign of Amount, plus")) << All(Tree());
        Press("Flag, none");
        Press("Reconciled");
        EXPECT_EQ(state.FormFlag, 1);
        const std::vector<std::string> after = Tree();
        EXPECT_TRUE(Has(after, "button Flag, red")) << All(after);
        EXPECT_TRUE(Has(after, "check Reconciled (on)")) << All(after);
    });
}

// Keys in words, one after the other.
void Keys(const char *words) {
    for (const QString &word : QString::fromUtf8(words).split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        const QKeyCombination key = QKeySequence(word)[0];
        PressKey(key.key(), key.keyboardModifiers());
    }
}

struct Stop {
    const char *Keys;
    std::vector<std::string> Told, NotTold = {};
};

TEST(Speech, WhatIsPaintedByHandIsToldOnEveryPage) {
    const Stop stops[] = {
        {"Esc Ctrl+3 Right",
         {"button Graph (selected)", "button Taps on boxes count up (off)",
          "picture Graph, 4 entries, from 0.00, to 9000.00"}},
        {"Down", {"text You've selected a transaction"}},
        {"F2",
         {"button Regression (selected)",
          "picture Regression, 4 entries, from 0.00, to 9000.00, line from 8506, 5 Nov 2026, to 5546, 19 Nov 2026"}},
        {"F2 Return Right",
         {"button Day, 19 Nov 2026", "button Month, 19 Nov 2026 (selected)", "button Tens, value 5546",
          "button Percentage, 0", "button Percentage acts on the value (selected)", "button Taps on boxes count up"}},
        {"F2",
         {"row Opening balance, 9000.00, 74.8% (selected)", "row Car deposit, -3000.00, 24.9%",
          "button Value, 9000.00 (selected)", "button Segments by, name", "picture Bars, 3 segments"}},
        {"Down F2 Return",
         {"picture Pie, 3 segments", "button category", "button name (selected)", "button Order, largest first"}},
        {"Up", {}},
        {"Esc Ctrl+2 Home Ctrl+H",
         {"text Hub, 0.000", "button Cone: hub or calculator", "button 7", "button Point", "tab Bin", "title Date"},
         {"text HUB is the Zent focus for data control"}},
        {"Ctrl+K",
         {"heading Calculator", "button X, 0.000 (selected)", "button Operator, Plus", "button Square root"},
         {"tab Bin", "title Date"}},
        {"9 9 9 9 9 9 9 * 9 9 9 9 =", {"button Z, too large (selected)"}},
        {"Ctrl+H Ctrl+7 Ctrl+M",
         {"button Category before", "button Colour of the category", "text Entry 3", "box Name"}},
        {"F2",
         {"heading Palette, red 0, green 0, blue 200", "button Colour 60, red 140, green 0, blue 70",
          "button Red, 0 (selected)", "slider Red = 0", "picture Cone of hues, hue 170, saturation 254"}},
        {"Up", {"slider Red = 1"}},
        {"Esc Esc Ctrl+4 Ctrl+M",
         {"button First: used next (selected)", "button Then: used from then on", "check Gratis", "combo Unit"}},
    };
    Sitting([&] {
        for (const Stop &stop : stops) {
            Keys(stop.Keys);
            const std::vector<std::string> tree = Tree();
            for (const std::string &line : stop.Told)
                EXPECT_TRUE(Has(tree, line)) << stop.Keys << " lacks '" << line << "' among\n" << All(tree);
            for (const std::string &line : stop.NotTold)
                EXPECT_FALSE(Has(tree, line)) << stop.Keys << " tells '" << line << "'";
        }
    });
}

TEST(Speech, EachFormHasNamesForAllOfIt) {
    const struct {
        int Command;
        std::vector<std::string> Told;
    } forms[] = {{CommandNotepad, {"box Notepad"}},
                 {CommandGeneral, {"check Display startup screen (on)", "combo Look ahead"}},
                 {CommandImport, {"button entries newer than in the account (selected)", "combo File name"}},
                 {CommandExport, {"button all entries (selected)", "progress Progress"}},
                 {CommandBackup, {"button The directory above", "text \\", "list Directories"}},
                 {CommandAbout, {"heading Zentrik", "slider Speed of the movie = 20"}},
                 {CommandInsertReconcile, {"button Sign of Amount, plus", "box Date"}}};
    Sitting([&] {
        Keys("Esc Ctrl+2");
        for (const auto &form : forms) {
            HandleEvent({.Kind = EventKind::Command, .Code = form.Command});
            Settle();
            const std::vector<std::string> tree = Tree();
            for (const std::string &line : form.Told)
                EXPECT_TRUE(Has(tree, line)) << "'" << line << "' is not among\n" << All(tree);
            for (const char *nameless : {"button ", "check ", "combo ", "box ", "slider ", "list ", "progress "})
                EXPECT_FALSE(Has(tree, nameless)) << nameless << "has no name among\n" << All(tree);
            Keys("Esc");
        }
    });
}

bool Holds(QAccessibleInterface *below, const QString &secret) {
    for (int i = 0; i < below->childCount(); ++i) {
        QAccessibleInterface *const child = below->child(i);
        QString all = child->text(QAccessible::Name) + child->text(QAccessible::Value);
        if (QAccessibleTextInterface *const text = child->textInterface())
            all += text->text(0, text->characterCount());
        if (all.contains(secret) || Holds(child, secret))
            return true;
    }
    return false;
}

TEST(Speech, AllButTheCodeIsToldOfThePassCodeScreen) {
    Sitting([] {
        Keys("Esc");
        HandleEvent({.Kind = EventKind::Command, .Code = CommandPasswordOn});
        Settle();
        EXPECT_TRUE(Has(Tree(), "heading Enter new pass code") && Has(Tree(), "button 7") &&
                    Has(Tree(), "check Long code") && Has(Tree(), "button Clear, wrong codes so far 0"))
            << All(Tree());
        told.clear();
        Keys("7");
        EXPECT_TRUE(Has(told, "alert text 1 of 4 digits entered")) << All(told);
        EXPECT_FALSE(Holds(QAccessible::queryAccessibleInterface(host.Windows[HostWindow]), QStringLiteral("7 ")));
        Press("Long code");
        EXPECT_TRUE(Has(Tree(), "check Long code (on)") && Has(Tree(), "box Pass code")) << All(Tree());
        Type("sesame");
        EXPECT_EQ(qobject_cast<QLineEdit *>(Control("Pass code"))->text(), QStringLiteral("sesame"));
        EXPECT_FALSE(
            Holds(QAccessible::queryAccessibleInterface(static_cast<QWidget *>(host.Frame)), QStringLiteral("sesame")));
    });
}

TEST(Speech, WhatKeysChangeIsTold) {
    const struct {
        const char *Before, *Keys, *Told;
    } rows[] = {
        {"Esc Ctrl+2 Ctrl+H", "5", "alert text Hub, 5.000"},
        {"Ctrl+K", "7", "focus button X, 7.000 (selected)"},
        {"Ctrl+H Ctrl+3 Right", "Up", "focus row 15 Nov 2026, 6000.00, Car deposit (selected)"},
        {"F2 F2 Return", "Up", "focus button Day, 20 Nov 2026 (selected)"},
        {"F2", "Down", "focus row Car deposit, -3000.00, 24.9% (selected)"},
        {"Ctrl+7 Ctrl+M F2", "Right", "focus slider Green = 0"},
    };
    Sitting([&] {
        for (const auto &row : rows) {
            Keys(row.Before);
            told.clear();
            Keys(row.Keys);
            EXPECT_TRUE(Has(told, row.Told)) << "'" << row.Told << "' is not among\n" << All(told);
        }
        QAccessibleInterface *const slider =
            Find(QAccessible::queryAccessibleInterface(host.Windows[HostWindow]), QStringLiteral("Green"));
        ASSERT_TRUE(slider && slider->valueInterface());
        slider->valueInterface()->setCurrentValue(90);
        Settle();
        EXPECT_EQ(state.Mixed.ColG, 90);
    });
}

} // namespace
