// Device paths: where they lie on the host, and which of them an action covers. For the file layer alone.
#pragma once

#include "platform/files.h"

inline constexpr int HostPathRoom = 1024 + PathRoom;
inline constexpr char ProgramDirectory[] = "Program Files\\Zentrik";
inline constexpr char ShadowPrefix[] =
    "Shadow~"; // names of files that stand in for a target until their action is done

// The host's directory that stands for the root.
void NameRoot(const char *hostDirectory);
const char *RootName();

// The path without its leading '\', so that equal files have equal paths. 0 when it does not fit into PathRoom.
[[nodiscard]] int PlainPath(char *to, const char *path);
// The host's path of a plain path. Room of HostPathRoom.
void HostPath(char *to, const char *plain);
// The directory of a plain path, "" for the root. Room of PathRoom.
void DirectoryOf(char *to, const char *plain);

// 1 for what belongs to an action: all below ProgramDirectory but the error log, the journal and the shadows. The log
// tells of actions that were refused, so it can be in none.
int BelongsToActions(const char *plain);
// 1 for the files that tell of trouble, whose own trouble concerns nobody.
int TellsTrouble(const char *plain);
