#pragma once

#include <thread>

// Loads the system's font configuration on a thread of its own while the program starts: the
// configuration files are read and parsed once per process, which is a large share of a start,
// and the first text the main window measures would otherwise wait for it. Meanwhile the main
// thread makes the application object and opens the database.
//
// Wait() before anything of the main thread measures or draws text: a text measured while the
// configuration is still being read would read it a second time instead of waiting. Without
// the font configuration library (other systems) nothing is loaded ahead.
class FontWarmUp {
public:
    FontWarmUp();
    ~FontWarmUp();
    FontWarmUp(const FontWarmUp&) = delete;
    FontWarmUp& operator=(const FontWarmUp&) = delete;

    // Returns when the configuration is loaded (at once the second time).
    void Wait();
    // True once Wait() has returned and the configuration was loaded ahead.
    bool Loaded() const { return m_loaded; }
    // False where the program was built without the font configuration library.
    static bool Available();

private:
    std::thread m_thread;
    bool m_loaded = false;
    bool m_result = false; // written by the thread, read after it is joined
};
