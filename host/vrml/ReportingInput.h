#pragma once

#include "host/vrml/SceneReader.h"

#include <Inventor/SoInput.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>

namespace kthost
{

/// Says while the library reads it how far that is. The library asks for a name at least once a node.
class ReportingInput : public SoInput
{
public:
    ReportingInput(const std::string& text, ReadingProgress progress)
        : _size(text.size()), _step(text.size() / 100 + 1), _progress(std::move(progress))
    {
        setBuffer(text.data(), text.size());
    }

    using SoInput::read;
    SbBool read(SbName& name, SbBool validIdent) override
    {
        const std::size_t done = _progress ? getNumBytesRead() : 0;
        if (done >= _next) {
            _next = done + _step;
            _progress(std::min(static_cast<double>(done) / static_cast<double>(_size), 1.0));
        }
        return SoInput::read(name, validIdent);
    }

private:
    std::size_t _size;
    std::size_t _step;
    std::size_t _next = _step;
    ReadingProgress _progress;
};

} // namespace kthost
