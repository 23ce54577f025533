// An action: what stands in the files is all of it or nothing of it, whenever the program is killed or the power
// fails.
//
// Between BeginAction and CommitAction everything that is done to files below "\Program Files\Zentrik" through files.h
// is held in memory: bytes and lengths, files and directories made, deleted, moved and copied. Reads, lengths, walks
// and questions see it; the files on the disk do not have it yet. CommitAction writes it to the journal, makes that
// durable with one sync, and only then writes the files. What an action can't hold in memory goes into shadow files
// beside their targets, which take their places at the commit. Files elsewhere under the root, the error log and the
// trace are written directly and belong to no action.
//
// A refusal sticks: any read, open (but not the mere absence of a file), length, walk, write, cut, deletion, move or
// copy that fails, or that finds no room in a table, marks the action, and a marked action is never committed. So
// nothing can be decided on a failed read, and nobody has to undo by hand.
//
// A change outside an action is an action of its own.
#pragma once

#include <cstdint>

// Begins an action. Inside one: the one that runs is refused, and goes on.
void BeginAction();

// 1: what the action did is durable and stands in the files; also when it did nothing, which costs nothing. 0: the
// action was refused, or the machine refuses now, and everything is as before its begin; 0 also outside an action. In
// either case no action runs any more, and another one may begin at once, also in the middle of an event.
//
// When the machine refuses after the journal has become durable, the action counts as done: the files get it with the
// next action, or at the next start, and until then every read through files.h sees it.
[[nodiscard]] int CommitAction();

// Drops what the action did. Nothing outside an action.
void AbortAction();

// Why the action that runs, or the last one that was to be committed, was refused.
enum ActionRefusal : int {
    NotRefused = 0,
    ReadRefused = 1,  // something could not be read
    WriteRefused = 2, // something could not be written, or has no room
};
int ActionRefused();

// Marks the action that runs as refused; the first reason stays.
void RefuseAction();
void RefuseActionFor(ActionRefusal reason);

// 1 between BeginAction and its end.
int ActionRuns();
// Tells one action from another; the last one's when none runs.
uint32_t ActionNumber();
// 1 when the action that runs has changed anything.
int ActionChanged();

// A small number that says what the action was, for whoever offers to undo it. 0 at its begin: an action that nobody
// names, as what the program does by itself or what only concerns how things look, is not kept for the undo.
void NameAction(int label);
