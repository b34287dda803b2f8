// What the decoder process may still do once the first foreign byte reaches it: take memory, compute, answer.
#pragma once

/// Before the shelter: no core dumps, few descriptors, and the first to go where the machine has no memory left; asked to
/// end by anybody but the parent's leaving, it stays.
void prepareForShelter();

/// From here on the system refuses this process, for good and for whatever it might become, all but a list of harmless
/// calls: no file is opened, no socket made, no process started or signalled, no code loaded. Threads started before
/// aren't covered. False where the system doesn't know such a filter.
bool enterShelter();
