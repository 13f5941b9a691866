#pragma once

// What a host asks of a control before it removes it: whether it may go. An
// editor answers through its save cycle (it offers to save and answers true
// whatever the user said); a control that need not be asked does not
// implement this.
class Unloadable {
public:
    virtual ~Unloadable() = default;
    virtual bool CanUnload() = 0;
};
