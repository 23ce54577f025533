#include "screens/movie.h"
#include "drawing/colours.h"
#include "platform/shell.h"
#include "platform/text.h"
#include "resources/art.h"
#include "resources/geometry.h"
#include "screens/front_page.h"
#include "state/state.h"
#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>

namespace {

constexpr int LeastDelay = 15; // milliseconds a step at the tracker's top; a unit below it costs one
constexpr int OpeningScene = -1;
constexpr int PauseFrames = 24; // between two scenes

// --- The opening: the page appears between the slats of a blind that fall ever faster

constexpr int SlatHeight = 67, PageHeight = 4 * SlatHeight;
constexpr int OpenedSlat[] = {2, 5, 10, 17, 25, 34, 44, 55, SlatHeight}; // rows of each slat that show, by frame
constexpr Colour BlindColour = Rgb(16, 26, 60);

int OpenBlind(int frame) {
    for (int top = 0; top < PageHeight; top += SlatHeight) {
        if (frame == 0)
            FillRect(HostWindow, {0, top, ScreenWidth, top + SlatHeight}, BlindColour);
        const int from = frame == 0 ? 0 : OpenedSlat[frame - 1];
        DrawPage({0, top + from, ScreenWidth, top + OpenedSlat[frame]});
    }
    const bool last = frame + 1 == static_cast<int>(std::size(OpenedSlat));
    if (last)
        DrawWholePage();
    return last;
}

// --- Mosaic: a picture comes and goes in tiles

constexpr int TileWidth = 25, TileHeight = 62, TileColumns = 8, Tiles = 2 * TileColumns;
constexpr int TilesLeft = 23, TilesTop = 31;
constexpr int PictureHold = 60; // frames it stands

// From the left or the right, and in which row the first tile stands, by the bits of the pattern.
void Mosaic(int pattern, int index, bool showing) {
    const int column = pattern & 1 ? TileColumns - 1 - index % TileColumns : index % TileColumns;
    const bool second = index >= TileColumns;
    const bool lower = ((index + (pattern >> 1)) & 1) != second;
    const int x = TilesLeft + column * TileWidth, y = TilesTop + (lower ? TileHeight : 0);
    const Rect part = {x - TilesLeft, y - TilesTop, x - TilesLeft + TileWidth, y - TilesTop + TileHeight};
    if (showing)
        CopyImage(HostWindow, {x, y}, MoviePicture, part);
    else
        DrawPage({x, y, x + TileWidth, y + TileHeight});
}

int PlayTiles(int pattern, int frame) {
    if (frame < Tiles)
        Mosaic(pattern, frame, true);
    else if (frame >= Tiles + PictureHold)
        Mosaic(pattern, frame - Tiles - PictureHold, false);
    return frame + 1 == 2 * Tiles + PictureHold;
}

// --- The wheel: three blades of gold turn, stand, and turn back

constexpr int WheelX = 119, WheelY = 94, BladeLength = 40, HalfBlade = 8, WheelReach = BladeLength + 3;
constexpr int DegreesAFrame = 10, LastAngle = 1170, StandsFrom = 630, StandsTo = 810;
constexpr Colour BladeGold = Rgb(255, 232, 150), BladeShade = Rgb(240, 160, 0), BladeEdge = Rgb(122, 74, 0);

void DrawBlade(int degrees) {
    const double angle = degrees * std::numbers::pi / 180;
    const double alongX = std::cos(angle), alongY = std::sin(angle);
    const auto at = [&](int along, int across) {
        return Point{WheelX + static_cast<int>(std::lround(along * alongX - across * alongY)),
                     WheelY + static_cast<int>(std::lround(along * alongY + across * alongX))};
    };
    const Point light[] = {at(4, 0), at(BladeLength / 2, HalfBlade), at(BladeLength, 0)};
    const Point dark[] = {at(4, 0), at(BladeLength / 2, -HalfBlade), at(BladeLength, 0)};
    FillPolygon(HostWindow, light, 3, BladeGold, BladeEdge);
    FillPolygon(HostWindow, dark, 3, BladeShade, BladeEdge);
}

int TurnWheel(int, int frame) {
    const int index = frame * DegreesAFrame;
    if (index > StandsFrom && index <= StandsTo)
        return 0;
    const int degrees = index <= StandsFrom ? index : StandsFrom + StandsTo - index;
    const bool last = index >= LastAngle;
    DrawPage({WheelX - WheelReach, WheelY - WheelReach, WheelX + WheelReach + 1, WheelY + WheelReach + 1});
    for (int blade = 0; !last && blade < 3; ++blade)
        DrawBlade(degrees + blade * 120);
    return last;
}

// --- The swirl: letters circle, find their places in a line, and drop out of it

constexpr int CellWidth = 10, CellHeight = 20;
constexpr int TrackLength = 70; // positions of the closed path
constexpr int TrackX = 114, TrackY = 84, TrackRadiusX = 96, TrackRadiusY = 62;
constexpr Colour LetterInk = Rgb(255, 213, 80);
constexpr int LineY = 176, Spacing = 2; // positions between two letters on the path
constexpr int Circling = 50;            // frames after the last letter has come in
constexpr int FlightFrames = 8, LineHold = 50, DropFrames = 10;

// clang-format off
constexpr const char16_t *Lines[] = {
    u"Your money in one place",
    u"Tap any item for help",
    u"Nothing needs saving",
    u"Every tab has its list",
};
// clang-format on
constexpr bool LinesFit() {
    for (const char16_t *line : Lines) {
        int length = 0;
        while (line[length])
            ++length;
        if (length > MostMovieItems)
            return false;
    }
    return true;
}
static_assert(LinesFit());

// When each letter does what, in frames of the scene.
int LeavesTrack(int item) {
    return state.MovieItemCount * (Spacing + 1) + Circling + item;
}
int DropsOut(int item) {
    return LeavesTrack(state.MovieItemCount) + FlightFrames + LineHold + item;
}

Point OnTrack(int position) {
    const double angle = 2 * std::numbers::pi * (position % TrackLength) / TrackLength - std::numbers::pi / 2;
    return {TrackX + static_cast<int>(std::lround(TrackRadiusX * std::cos(angle))),
            TrackY + static_cast<int>(std::lround(TrackRadiusY * std::sin(angle)))};
}

// Where a letter stands in a frame. 0 before it comes in and once it has dropped out.
int PlaceItem(int item, int frame, Point *to) {
    const int position = frame - Spacing * item;
    const Point home = {(ScreenWidth - state.MovieItemCount * CellWidth) / 2 + item * CellWidth, LineY};
    if (position < 0 || frame >= DropsOut(item) + DropFrames)
        return 0;
    if (frame < LeavesTrack(item)) {
        *to = OnTrack(position);
    } else if (const int flown = frame - LeavesTrack(item); flown < FlightFrames) {
        const Point from = OnTrack(position - flown);
        const int left = (FlightFrames - flown) * (FlightFrames - flown), whole = FlightFrames * FlightFrames;
        *to = {home.X + (from.X - home.X) * left / whole, home.Y + (from.Y - home.Y) * left / whole};
    } else {
        const int dropped = std::max(0, frame - DropsOut(item));
        *to = {home.X, home.Y + dropped * dropped / 4};
    }
    return 1;
}

void DrawItem(const MovieItem &item) {
    const char16_t letter[] = {static_cast<char16_t>(item.Letter), 0};
    PaintText(HostWindow, letter, {item.X, item.Y, item.X + CellWidth, item.Y + CellHeight}, Align::Centre,
              Font::LargeBold, LetterInk, 1);
}

void LoadLine(int line) {
    int count = 0;
    for (const char16_t *letter = Lines[line]; *letter; ++letter)
        state.MovieItems[count++] = {*letter, 0, 0, 0};
    state.MovieItemCount = count;
}

// Blanks every letter's old place, then draws the letters where they are now.
void RefreshMovie(int frame) {
    for (int i = 0; i < state.MovieItemCount; ++i) {
        const MovieItem &item = state.MovieItems[i];
        if (item.Shown)
            DrawPage({item.X, item.Y, item.X + CellWidth, item.Y + CellHeight});
    }
    for (int i = 0; i < state.MovieItemCount; ++i) {
        MovieItem &item = state.MovieItems[i];
        Point place;
        item.Shown = PlaceItem(i, frame, &place);
        if (!item.Shown)
            continue;
        item.X = place.X;
        item.Y = place.Y;
        if (item.Letter != u' ')
            DrawItem(item);
    }
}

int SwirlChars(int line, int frame) {
    if (frame == 0)
        LoadLine(line);
    const bool held = frame > LeavesTrack(state.MovieItemCount) + FlightFrames && frame < DropsOut(0);
    if (!held)
        RefreshMovie(frame);
    return frame >= DropsOut(state.MovieItemCount) + DropFrames;
}

// --- The scenes

struct Scene {
    int (*Play)(int variant, int frame); // draws a frame; 1 with the last
    int Variant;
};
constexpr Scene Scenes[MovieScenes] = {{PlayTiles, 0}, {SwirlChars, 0}, {TurnWheel, 0}, {PlayTiles, 1}, {SwirlChars, 1},
                                       {PlayTiles, 2}, {SwirlChars, 2}, {PlayTiles, 3}, {SwirlChars, 3}};

void ShuffleScenes() {
    for (int i = 0; i < MovieScenes; ++i) {
        const int with = Random(i + 1);
        state.SceneOrder[i] = state.SceneOrder[with];
        state.SceneOrder[with] = i;
    }
}

// 1 with the last frame of the present scene.
int PlayFrame() {
    if (state.MovieFrame < 0)
        return 0; // a pause
    if (state.MovieScene == OpeningScene)
        return OpenBlind(state.MovieFrame);
    const Scene &scene = Scenes[state.SceneOrder[state.MovieScene]];
    return scene.Play(scene.Variant, state.MovieFrame);
}

} // namespace

void StartMovie() {
    if (state.MovieRunning)
        return;
    const bool first = state.MovieStage == MovieStep::NotBegun;
    ShuffleScenes();
    state.MovieRunning = 1;
    state.MovieStage = MovieStep::Runs;
    state.MovieScene = first ? OpeningScene : 0;
    state.MovieFrame = first ? 0 : -PauseFrames;
    state.MovieItemCount = 0;
}

void StopMovie() {
    state.MovieRunning = 0;
    state.MovieStage = MovieStep::NotBegun;
}

int DrawAbout() {
    if (!state.MovieRunning)
        return 0;
    const int last = PlayFrame();
    ++state.MovieFrame;
    if (last) {
        state.MovieFrame = -PauseFrames;
        if (++state.MovieScene == MovieScenes) {
            state.MovieRunning = 0;
            state.MovieStage = MovieStep::Rests;
            return 0;
        }
    }
    Sleep(LeastDelay + FastestMovie - state.MovieSpeed);
    return 1;
}

// A scene goes on from where it is; tiles and blades that stand are not brought back.
void RepaintMovie() {
    for (int i = 0; i < state.MovieItemCount; ++i)
        if (state.MovieItems[i].Shown && state.MovieItems[i].Letter != u' ')
            DrawItem(state.MovieItems[i]);
}
