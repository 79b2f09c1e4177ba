#include "host/vrml/CoinLibrary.h"

#include "host/vrml/TextureImages.h"

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

bool initOnce()
{
    SoDB::init();
    SoInteraction::init();
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
