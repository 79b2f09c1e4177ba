#include "host/vrml/ReaderMessages.h"

#include <kt/ktFailures.h>

#include <Inventor/SbString.h>
#include <Inventor/errors/SoDebugError.h>
#include <Inventor/errors/SoReadError.h>

#include <cstdlib>
#include <string_view>
#include <utility>

namespace kthost
{
namespace
{

constexpr std::string_view location = "\tOccurred at line";

/// What follows "Coin read error: " or "Coin warning in Class::function(): ".
std::string withoutDecoration(std::string words)
{
    if (words.compare(0, 5, "Coin ") != 0)
        return words;
    constexpr std::string_view ofFunction = "(): ";
    constexpr std::string_view ofReader = "Coin read error: ";
    const std::size_t function = words.find(ofFunction);
    if (words.compare(0, ofReader.size(), ofReader) == 0)
        words.erase(0, ofReader.size());
    else if (function != std::string::npos)
        words.erase(0, function + ofFunction.size());
    return words;
}

/// Blanks at both ends cut off, control characters as blanks.
std::string asOneLine(std::string words)
{
    words = ktFailures::inOneLine(std::move(words));
    words.erase(words.find_last_not_of(' ') + 1);
    words.erase(0, words.find_first_not_of(' '));
    return words;
}

} // namespace

ReaderMessages::ReaderMessages(Receiver receiver)
    : _receiver(std::move(receiver)),
      _readHandler(SoReadError::getHandlerCallback()),
      _readData(SoReadError::getHandlerData()),
      _debugHandler(SoDebugError::getHandlerCallback()),
      _debugData(SoDebugError::getHandlerData())
{
    SoReadError::setHandlerCallback(handle, this);
    SoDebugError::setHandlerCallback(handle, this);
}

ReaderMessages::~ReaderMessages()
{
    SoReadError::setHandlerCallback(_readHandler, _readData);
    SoDebugError::setHandlerCallback(_debugHandler, _debugData);
}

ReaderMessage ReaderMessages::parse(const std::string& text, bool isReadError)
{
    ReaderMessage message;
    message.isReadError = isReadError;
    const std::size_t end = text.find(location);
    if (end != std::string::npos)
        message.line = std::atoi(text.c_str() + end + location.size());
    message.words = asOneLine(withoutDecoration(text.substr(0, end)));
    return message;
}

void ReaderMessages::handle(const SoError* error, void* closure)
{
    static_cast<ReaderMessages*>(closure)->_receiver(
        parse(error->getDebugString().getString(), error->isOfType(SoReadError::getClassTypeId())));
}

} // namespace kthost
