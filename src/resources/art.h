// The images, drawn as SVG in resources/art/<id>.svg at these logical sizes.
#pragma once

// clang-format off
enum ImageId : int {
    TabIcons = 483,        // 8 icons 18 x 18 at pitch 18; from y 19 the alert variants of icons 4 and 6 in their columns
    TabShapes = 465,       // 9 shapes 37 x 26 at pitch 38; the ninth is the hot tab
    PageButton = 464,      // a round button in two halves of 8 x 18: the right one leads to the secondary page
    GoldUp = 228,
    GoldDown = 229,
    AccountsLogo = 431,
    ArchivesLogo = 432,
    GripBar = 503,
    PlusSign = 281,        // black
    MinusSign = 352,       // red
    TimesSign = 257,
    FlagNone = 302, FlagRed = 303, FlagBlue = 304, FlagYellow = 305,
    TwoPages = 317,        // duplicate on
    OnePage = 318,         // duplicate off
    ViewPictures = 333,    // Basic, Advanced: 20 x 20 each
    FormGround = 335,      // background of all forms
    BarSheet = 331,        // 13 cells 16 x 16: 1 to 8 eyes looking far left to far right, 9 closed, 10 straight, 11 and 12 keypads
    ToolsImage = 332,      // the tools popup of the command bar
    CrossImage = 336,      // cross and tick of the command bar
    TickImage = 337,
    DirectionArrows = 340, // conversion form: forward, reversed: 32 x 38 each
    EntryUp = 341,         // arrows of a form's top line, 20 x 18
    EntryDown = 342,
    ProgramIcon = 300,
    FrontGround = 290,     // background of the front page and About
    FrontBanner = 291,     // the name below it; the command bar covers its last 32 rows
    MoviePicture = 292,    // what the movie's tiles show
    TrackerKnob = 293,     // of the movie's speed tracker
};
// clang-format on

struct Image {
    int Id, Width, Height;
};

// clang-format off
inline constexpr Image Images[] = {
    {TabIcons, 144, 37}, {TabShapes, 341, 26}, {PageButton, 16, 18}, {GoldUp, 17, 15}, {GoldDown, 17, 15},
    {AccountsLogo, 69, 13}, {ArchivesLogo, 69, 13}, {GripBar, 2, 13}, {PlusSign, 12, 12}, {MinusSign, 12, 12},
    {TimesSign, 12, 12}, {FlagNone, 20, 26}, {FlagRed, 20, 26}, {FlagBlue, 20, 26}, {FlagYellow, 20, 26},
    {TwoPages, 19, 20}, {OnePage, 19, 20}, {ViewPictures, 40, 20}, {FormGround, 240, 268}, {BarSheet, 208, 16},
    {ToolsImage, 16, 16}, {CrossImage, 16, 16}, {TickImage, 16, 16}, {DirectionArrows, 64, 38}, {EntryUp, 20, 18},
    {EntryDown, 20, 18}, {ProgramIcon, 64, 64}, {FrontGround, 241, 300}, {FrontBanner, 212, 78}, {MoviePicture, 200, 124},
    {TrackerKnob, 16, 7},
};
// clang-format on
