// Uses everything that a container holds, as hosts might.
#ifndef VSKCORE_FUZZ_CONTAINERWALK_H
#define VSKCORE_FUZZ_CONTAINERWALK_H

class TContainer;

// Reads, renders, compares, copies, seeks and follows all that stands in the container, and ends
// the process where two ways to one answer differ. Operations may fail, but only by their own
// exception. What costs as much as there are instances is asked of the first ones alone.
void WalkContainer(const TContainer& container);
// The same, without qualifiers and classes.
void WalkInstances(const TContainer& container);

// Changes and removes instances, properties and qualifiers, walks what is left, and removes all
// that nothing depends on.
void Dismantle(TContainer& container);

// Removes all instances.
void RemoveInstances(const TContainer& container);

#endif
