// The program's painted windows for screen readers and other helpers of the desktop: each spot of platform/spoken.h is
// an object with name, role, states and an action, beside the real controls.
#pragma once

// Property of a control of which nothing is told but that it is there.
inline constexpr char ReadToNobody[] = "readToNobody";

class QAccessibleEvent;

// Once, before the first window.
void OfferSpeech();
// After an event: tells who listens what has changed. Nothing while nobody does.
void TellChanges();
// The way of an event to the desktop; the toolkit lets none pass where no desktop listens.
extern void (*SendSpeech)(QAccessibleEvent *event);
