#include "host/vrml/CoinLibrary.h"

#include "host/vrml/ReaderMessages.h"
#include "host/vrml/SceneWarnings.h"
#include "host/vrml/TextureImages.h"

#include <kt/ktLog.h>

#include <Inventor/SoDB.h>
#include <Inventor/SoInteraction.h>
#include <Inventor/VRMLnodes/SoVRMLInline.h>
#include <Inventor/fields/SoSFTime.h>

namespace kthost
{
namespace
{

// The reader's sensors look at this clock while they are read. Any fixed moment will do, so that a file reads
// the same every time; a late one makes sensors with a start time in the past be over, as they are by the
// calendar.
constexpr double readingMoment = 1e9;

/// What it says of a scene that plays: where a route leads to a field of another type, with each frame.
void logOnce(const ReaderMessage& message)
{
    static SceneWarnings told;
    const std::size_t before = told.entries().size();
    told.add(message.words);
    if (told.entries().size() > before)
        ktLog::info("the open scene: %s", message.words.c_str());
}

bool initOnce()
{
    SoDB::init();
    SoInteraction::init();
    static const ReaderMessages nobodyElses(logOnce);
    SoDB::enableRealTimeSensor(FALSE);
    static_cast<SoSFTime*>(SoDB::getGlobalField("realTime"))->setValue(SbTime(readingMoment));
    SoVRMLInline::setReadAsSoFile(FALSE);
    TextureImages::install();
    return true;
}

} // namespace

void CoinLibrary::init()
{
    static const bool done = initOnce();
    static_cast<void>(done);
}

} // namespace kthost
