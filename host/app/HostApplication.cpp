#include "host/app/HostApplication.h"

#include <kt/ktFailures.h>

#include <QEvent>
#include <QFileInfo>
#include <QMetaEnum>
#include <QThread>

#include <dlfcn.h>

#include <array>
#include <cstring>

namespace kthost
{
namespace
{

/// The tables of virtual functions of an object, its parent and so on, each in the library of the object's
/// class: what is known of them when the objects may be gone.
using Classes = std::array<const void*, 12>;

Classes classesAbove(const QObject* object)
{
    Classes classes{};
    for (std::size_t i = 0; object && i < classes.size(); ++i, object = object->parent())
        std::memcpy(&classes[i], object, sizeof classes[i]);
    return classes;
}

QString libraryOf(const void* place)
{
    Dl_info info{};
    return dladdr(place, &info) != 0 ? QFileInfo(QString::fromLocal8Bit(info.dli_fname)).fileName()
                                     : QString();
}

/// A plug-in connects to what the toolkit and the SDK offer, so the receiver is often none of its own
/// classes, but stands in its panel.
QString ownerOf(const Classes& classes)
{
    for (const void* table : classes) {
        const QString library = table ? libraryOf(table) : QString();
        if (!library.isEmpty() && !library.startsWith(QLatin1String("libQt5")) &&
            !library.startsWith(QLatin1String("libktHost")))
            return library;
    }
    return QStringLiteral("kthost");
}

std::string placeOf(const Classes& classes, const QMetaObject* receiver, QEvent::Type type)
{
    const char* event = QMetaEnum::fromType<QEvent::Type>().valueToKey(type);
    return QStringLiteral("%1: %2 event of %3")
        .arg(ownerOf(classes), QLatin1String(event ? event : "custom"), QLatin1String(receiver->className()))
        .toStdString();
}

} // namespace

bool HostApplication::notify(QObject* receiver, QEvent* event)
{
    if (!receiver || QThread::currentThread() != thread())
        return QApplication::notify(receiver, event);
    const Classes classes = classesAbove(receiver);
    const QMetaObject* known = receiver->metaObject();
    const QEvent::Type type = event->type();
    bool result = false;
    ktFailures::survived([&] { return placeOf(classes, known, type); },
                         [&] { result = QApplication::notify(receiver, event); });
    return result;
}

} // namespace kthost
