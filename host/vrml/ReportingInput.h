#pragma once

#include <Inventor/SoInput.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <string>
#include <utility>

namespace kthost
{

/// Asks while the library reads it whether it may go on. The library asks for a name at least once a node and
/// once a field; where it must not go on, the text ends there.
class ReportingInput : public SoInput
{
public:
    /// Told how many bytes are read.
    using Gate = std::function<bool(std::size_t bytes)>;

    /// `text` must outlive this.
    ReportingInput(const std::string& text, Gate gate) : _text(text), _gate(std::move(gate))
    {
        setBuffer(text.data(), text.size());
    }

    /// The line that the library has come to, from 1.
    std::size_t line()
    {
        // There are none read at the end of the text, for the library.
        const std::size_t position = std::max(_counted, std::min(getNumBytesRead(), _text.size()));
        const char* const begin = _text.data();
        _line += static_cast<std::size_t>(std::count(begin + _counted, begin + position, '\n'));
        _counted = position;
        return _line;
    }

    using SoInput::read;
    SbBool read(SbName& name, SbBool validIdent) override
    {
        return isOpen() ? SoInput::read(name, validIdent) : FALSE;
    }

    SbBool read(char& c) override { return _isOver ? FALSE : SoInput::read(c); }
    SbBool read(char& c, SbBool skip) override { return _isOver ? FALSE : SoInput::read(c, skip); }
    SbBool read(SbString& text) override { return _isOver ? FALSE : SoInput::read(text); }
    SbBool get(char& c) override { return _isOver ? FALSE : SoInput::get(c); }
    SbBool eof() const override { return _isOver ? TRUE : SoInput::eof(); }

private:
    bool isOpen()
    {
        _isOver = _isOver || !_gate(getNumBytesRead());
        return !_isOver;
    }

    const std::string& _text;
    Gate _gate;
    std::size_t _counted = 0; ///< Bytes whose line ends are in _line.
    std::size_t _line = 1;
    bool _isOver = false;
};

} // namespace kthost
