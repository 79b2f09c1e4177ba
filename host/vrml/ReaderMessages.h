#pragma once

#include <functional>
#include <string>

class SoError;

namespace kthost
{

/// One message of the reader.
struct ReaderMessage
{
    std::string words; ///< One line, without the reader's own decoration.
    int line = 0;      ///< Of the file being read, from 1; 0 where the reader names none.
    bool isReadError = false;
};

/// Takes the reader's messages for as long as it lives, in place of whoever took them before.
class ReaderMessages
{
public:
    using Receiver = std::function<void(ReaderMessage)>;

    explicit ReaderMessages(Receiver receiver);
    ~ReaderMessages();
    ReaderMessages(const ReaderMessages&) = delete;
    ReaderMessages& operator=(const ReaderMessages&) = delete;

    /// Takes a message text of the reader apart.
    static ReaderMessage parse(const std::string& text, bool isReadError);

private:
    using Handler = void(const SoError*, void*);

    static void handle(const SoError* error, void* closure);

    Receiver _receiver;
    Handler* _readHandler;
    void* _readData;
    Handler* _debugHandler;
    void* _debugData;
};

} // namespace kthost
