// Every form as the eye and the finger find it.
#include "forms/forms.h"
#include "forms/progress.h"
#include "host/device.h"
#include "resources/art.h"

using namespace testhost;

namespace {

bool Overlap(const Rect &a, const Rect &b) {
    return a.Left < b.Right && b.Left < a.Right && a.Top < b.Bottom && b.Top < a.Bottom;
}
bool Empty(const Rect &box) {
    return box.Left >= box.Right;
}
std::string Named(const Rect &box) {
    return "{" + std::to_string(box.Left) + ", " + std::to_string(box.Top) + ", " + std::to_string(box.Right) + ", " +
           std::to_string(box.Bottom) + "}";
}

class Layout : public Device {
protected:
    // A new row's form on the shares account, or its view: by its resource.
    void Open(int resource) {
        constexpr struct {
            int Resource, Screen;
        } screens[] = {{106, AccountList},    {112, RecurringList},   {116, TemplateList},   {151, CategoryList},
                       {150, ConversionList}, {111, TransactionList}, {144, TransactionList}};
        if (resource == 133)
            Modify(TransactionList, 1);
        if (resource == 136)
            SendCommand(CommandImport);
        if (resource == 137)
            SendCommand(CommandExport);
        for (const auto &row : screens)
            if (row.Resource == resource)
                New(row.Screen);
        if (resource == 144)
            TapPart(ViewItem);
        ASSERT_EQ(form.Resource, resource);
    }
    // Nothing overlaps, all is above the message window, and no text is cut.
    void Examine(int resource) {
        ASSERT_EQ(form.Resource, resource);
        SCOPED_TRACE(resource);
        std::vector<std::pair<std::string, Rect>> seen, hit;
        for (const auto &[id, control] : form.Controls) {
            const FormControl &box = control.Template;
            const Rect place = {box.X, box.Y, box.X + box.Width, box.Y + box.Height};
            seen.push_back({"control " + std::to_string(id), place});
            hit.push_back(seen.back());
            EXPECT_GE(box.Height, 18) << id;
            EXPECT_TRUE(box.Name && *box.Name) << id;
        }
        for (const FormPart &part : state.OpenedForm->Parts) {
            if (part.Present && !part.Present())
                continue;
            const std::string name = "item " + std::to_string(part.Item) + " at " + Named(part.Box);
            if (!Empty(part.Box))
                seen.push_back({name, part.Box});
            if (!Empty(part.Hit))
                hit.push_back({name, part.Hit});
            EXPECT_TRUE(part.Field == 0 || form.Controls.count(part.Field)) << name;
        }
        for (auto *boxes : {&seen, &hit})
            for (size_t a = 0; a < boxes->size(); ++a) {
                const Rect &box = (*boxes)[a].second;
                EXPECT_TRUE(box.Left >= 0 && box.Top >= 0 && box.Right <= 240 && box.Bottom <= 189)
                    << (*boxes)[a].first;
                for (size_t b = a + 1; b < boxes->size(); ++b)
                    EXPECT_FALSE(Overlap(box, (*boxes)[b].second)) << (*boxes)[a].first << " and " << (*boxes)[b].first;
            }
        for (const StandingText &text : TextsOn(DialogWindow)) {
            EXPECT_FALSE(text.Cut) << text.Words;
            EXPECT_EQ(text.Visible, 100) << text.Words;
            for (const auto &[id, control] : form.Controls) {
                const FormControl &box = control.Template;
                EXPECT_FALSE(Overlap(text.Ink, {box.X, box.Y, box.X + box.Width, box.Y + box.Height})) << text.Words;
            }
        }
        // Tab follows the eye: down the form, and from left to right in a row.
        for (size_t n = 1; n < form.Order.size(); ++n) {
            const FormControl &a = form.Controls[form.Order[n - 1]].Template,
                              &b = form.Controls[form.Order[n]].Template;
            EXPECT_TRUE(b.Y > a.Y + a.Height / 2 || b.X > a.X) << a.Id << ' ' << b.Id;
        }
    }
};

TEST_F(Layout, NothingOverlapsAndNoTextIsCutOnAnyForm) {
    MakeAccount("Shares", ShareRow);
    for (const int resource : {106, 111, 144, 133, 112, 116, 151, 150}) {
        Open(resource);
        Examine(resource);
        if (resource == 133) {
            TapPart(ViewItem);
            Examine(111);
        }
        Cross();
        if (state.CurrentScreen != TransactionList) { // of a row that is there
            Modify(state.CurrentScreen, 1);
            Examine(resource);
            Cross();
        }
    }
    MakeAccount("Purse", BankRow);
    constexpr struct {
        int Command, Resource;
    } commands[] = {{CommandInsertReconcile, 149},
                    {CommandNotepad, 134},
                    {CommandGeneral, 135},
                    {CommandImport, 136},
                    {CommandExport, 137}};
    for (const auto &row : commands) {
        ASSERT_TRUE(SendCommand(row.Command));
        Examine(row.Resource);
        Cross();
    }
    ASSERT_TRUE(OpenProgressForm(UnarchiveDialog));
    Examine(141);
}

TEST_F(Layout, AnItemIsHitExactlyWhereItStands) {
    constexpr struct {
        int Resource, X, Y, Item;
    } cases[] = {
        {136, 17, 91, FirstChoiceItem},  {136, 16, 91, NoItem},           {136, 167, 131, SecondChoiceItem},
        {136, 40, 141, ThirdChoiceItem}, {136, 40, 157, NoItem},          {137, 40, 181, ThirdChoiceItem},
        {111, 19, 25, FlagItem},         {111, 20, 25, NoItem},           {111, 20, 17, SelectedCountItem},
        {111, 20, 18, NoItem},           {111, 100, 5, NoItem},           {111, 34, 43, TitleItem},
        {111, 35, 43, NoItem},           {111, 24, 69, FirstSignItem},    {111, 23, 69, NoItem},
        {111, 210, 67, ClearedItem},     {111, 209, 67, NoItem},          {111, 205, 163, ViewItem},
        {111, 24, 120, NoItem},          {144, 24, 120, SecondSignItem},  {144, 23, 120, TimesItem},
        {144, 35, 131, SecondSignItem},  {144, 35, 132, NoItem},          {144, 34, 113, RefItem},
        {144, 190, 118, FreeItem},       {144, 189, 118, NoItem},         {133, 91, 19, UpItem},
        {133, 150, 19, DownItem},        {133, 151, 17, TotalItem},       {133, 220, 25, DuplicateItem},
        {106, 126, 83, FirstSignItem},   {106, 141, 120, SecondSignItem}, {106, 54, 108, TypeItem},
        {112, 84, 117, DefaultItem},     {112, 98, 130, NextItem},        {112, 217, 9, ClearedItem},
        {112, 198, 68, FreeItem},        {116, 23, 127, SecondSignItem},  {116, 10, 141, CategoryItem},
        {116, 224, 127, FreeItem},       {150, 34, 89, FirstSignItem},    {150, 228, 113, DirectionItem},
        {151, 140, 17, UpItem},          {151, 165, 17, DownItem},        {151, 186, 17, TotalItem},
    };
    MakeAccount("Shares", ShareRow);
    int opened = 0;
    for (const auto &row : cases) {
        if (row.Resource != opened) {
            if (opened)
                Cross();
            Open(opened = row.Resource);
        }
        EXPECT_EQ(DialogItemAtPos(row.X, row.Y), row.Item) << row.Resource << ' ' << row.X << ' ' << row.Y;
    }
}

TEST_F(Layout, MarksShowWhatTheyStandForAndSayWhatTheyAre) {
    MakeAccount("Shares", ShareRow);
    Modify(TransactionList, 1);
    constexpr struct {
        int Item;
        const char *Words;
    } taps[] = {
        {FlagItem, "/A colour marker to attach to the entry//A simple aid to the eye//"},
        {FirstSignItem, "/Tap the +/- to change sign////"},
        {SecondSignItem, "/Tap the ×/- to change sign//If no sign is shown, '+' is assumed//"},
        {ClearedItem, "/The reconciled / unreconciled marker////"},
        {FreeItem, "/This indicates if a share entry/is free (zero cost) to buy or sell///"},
        {SelectedCountItem, "/Selected line number////"},
        {TotalItem, "/Total number of entries////"},
        {DuplicateItem, "/You've created a duplicate entry//Repeat, to discard the duplicate//"},
        {TitleItem, "/The item's title/use the drop-down menu/to select a template (if any)//"},
        {RefItem, "/A short text reference/Press & hold the stylus for cut & paste///"},
        {ViewItem, "/Basic view - of essential input data////"},
    };
    const int before[] = {ImageAt(DialogWindow, 5, 5), ImageAt(DialogWindow, 29, 74), ImageAt(DialogWindow, 29, 125)};
    EXPECT_EQ(before[0], FlagNone);
    for (const auto &tap : taps) {
        ASSERT_TRUE(TapPart(tap.Item)) << tap.Item;
        EXPECT_EQ(Lines(), tap.Words) << tap.Item;
        if (tap.Item == SecondSignItem) {
            EXPECT_EQ(ImageAt(DialogWindow, 5, 5), FlagRed);
            EXPECT_NE(ImageAt(DialogWindow, 29, 74), before[1]);
            EXPECT_EQ(ImageAt(DialogWindow, 29, 125), MinusSign);
            TapPart(TimesItem);
            EXPECT_EQ(ImageAt(DialogWindow, 29, 125), PlusSign);
        }
    }
    EXPECT_EQ(form.Resource, 111);
    EXPECT_TRUE(Remains(DialogWindow).empty());
    for (int n = 0; n < 3; ++n)
        TapPart(FlagItem);
    EXPECT_EQ(ImageAt(DialogWindow, 5, 5), FlagNone);
}

// What each form says as it opens (no field and no item), and each of its fields and parts when it is reached. Where
// forms share their lines, one of them shows.
TEST_F(Layout, EveryFormFieldAndPartExplainsItself) {
    enum { Opening = -1 };
    static constexpr struct {
        int Resource, Id;
        const char *Lines;
    } cases[] = {
        // clang-format off
        {106, Opening,         "0,115,0,117,0,0"},       {106, TextField,        "0,115,0,117,0,0"},
        {106, MinField,        "0,306,0,145,0,0"},       {106, TypeField,        "92,0,93,96,318,0"},
        {106, TypeItem,        "0,394,296,10,0,0"},      {106, FirstSignItem,    "0,145,0,299,0,0"},
        {111, Opening,         "132,130,2,3,117,0"},     {111, DateField,        "0,137,138,0,0,0"},
        {111, TitleField,      "0,139,144,140,0,0"},     {111, WholeField,       "0,141,143,144,145,0"},
        {111, FractionField,   "142,143,144,150,145,0"}, {144, TextField,        "0,147,162,0,0,0"},
        {144, MultiplierField, "148,149,143,144,213,0"}, {144, CategoryField,    "0,393,0,0,0,0"},
        {144, TransferField,   "0,151,144,156,0,0"},     {144, TimesItem,        "0,213,0,212,0,0"},
        {133, DownItem,        "0,71,72,397,0,0"},       {133, DuplicateItem,    "0,235,0,236,0,0"},
        {144, Opening,         "0,310,0,0,0,0"},
        {116, Opening,         "132,131,2,3,117,0"},
        {112, Opening,         "132,152,2,3,117,0"},     {112, AccountField,     "0,159,144,156,0,0"},
        {112, CountField,      "0,157,143,144,0,0"},     {112, UnitField,        "0,157,144,0,0,0"},
        {112, RemainingField,  "0,158,143,144,0,0"},     {112, DefaultItem,      "0,154,155,0,0,0"},
        {150, Opening,         "122,41,0,2,3,0"},        {150, FromField,        "0,348,144,0,0,0"},
        {150, ToField,         "0,349,144,0,0,0"},       {150, LabelItem,        "0,345,346,347,0,0"},
        {150, DirectionItem,   "0,350,342,0,0,0"},
        {151, Opening,         "122,41,0,2,3,0"},        {151, TextField,        "0,139,0,162,0,0"},
        {151, DescriptionField,"0,147,0,162,0,0"},       {151, DownItem,         "0,71,72,359,0,0"},
        {151, 100,             "0,360,361,0,0,0"},       {151, 101,              "0,356,0,357,0,0"},
        // clang-format on
    };
    for (const auto &row : cases) {
        SCOPED_TRACE(std::to_string(row.Resource) + ": " + std::to_string(row.Id));
        state.NewUserFields = 0;
        Open(row.Resource);
        EXPECT_TRUE(row.Id == Opening || (row.Id >= FirstField ? Focus(row.Id) : TapPart(row.Id)));
        EXPECT_EQ(Ids(), row.Lines);
        Cross();
    }
    static constexpr struct {
        int Command;
        const char *Opening;
        int Field;
        const char *Lines;
    } settings[] = {
        {CommandNotepad, "0,160,161,0,162,0", TextField, "0,160,161,0,162,0"},
        {CommandGeneral, "0,122,167,0,2,3", FrontPageCheck, "0,168,169,0,0,0"},
        {CommandGeneral, "0,122,167,0,2,3", AdvancedCheck, "0,311,312,0,0,0"},
        {CommandGeneral, "0,122,167,0,2,3", LookAheadField, "0,170,171,0,0,0"},
    };
    for (const auto &row : settings) {
        ASSERT_TRUE(SendCommand(row.Command));
        EXPECT_EQ(Ids(), row.Opening);
        EXPECT_TRUE(Focus(row.Field));
        EXPECT_EQ(Ids(), row.Lines) << row.Field;
        Cross();
    }
}

TEST_F(Layout, HelpOpensOverAFormAndLeavesNothingBehind) {
    New(AccountList);
    SendCommand(CommandLeftEye);
    EXPECT_EQ(TextAt(DialogWindow, {0, 189, 240, 202}), "This is Help mode");
    TapPart(FlagItem);
    EXPECT_EQ(TextAt(DialogWindow, {0, 202, 240, 215}), "A colour marker to attach to the entry");
    SendCommand(CommandLeftEye);
    EXPECT_EQ(TextAt(DialogWindow, {0, 189, 240, 268}), "");
    Cross();
    EXPECT_EQ(state.RowCount, 12);
}

TEST_F(Layout, ThePanelRisesWithAFormAndFallsWithIt) {
    machine.HasPanel = true;
    New(AccountList);
    EXPECT_TRUE(machine.PanelIsUp);
    machine.PanelPreference = 0;
    Tap(120, 26 + 30); // the ground
    EXPECT_EQ(machine.PanelPreference, 4);
    EXPECT_TRUE(machine.PanelIsUp);
    EXPECT_EQ(SipControl(0), 0);
    SendCommand(CommandLeftEye);
    EXPECT_FALSE(machine.PanelIsUp);
    EXPECT_EQ(SipControl(2), 0);
    SendCommand(CommandLeftEye);
    EXPECT_TRUE(machine.PanelIsUp);
    Cross();
    EXPECT_FALSE(machine.PanelIsUp);
}

} // namespace
