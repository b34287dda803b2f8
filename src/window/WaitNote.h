// The word to a person that the program waits for the one before it.
#pragma once

#include <memory>

class MessageBox;

/// The window of a program that was closed is gone while it still wipes: without a word it would look as if the next one
/// didn't start.
class WaitNote
{
public:
    WaitNote();
    ~WaitNote();

    /// Shows it, and keeps it drawn; to be called again and again, as no event loop runs as yet.
    void show();
    void close();

private:
    std::unique_ptr<MessageBox> m_box;
};
