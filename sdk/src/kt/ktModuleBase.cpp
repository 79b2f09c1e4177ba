#include <kt/ktModuleBase.h>

#include <algorithm>

namespace
{

std::vector<ktModuleBase*>& livingModules()
{
    static std::vector<ktModuleBase*> all;
    return all;
}

} // namespace

ktModuleBase::ktModuleBase(const char* name, const char* title, unsigned int messages, QPixmap* pixmap)
    : _name(QString::fromUtf8(name)), _title(QString::fromUtf8(title)), _messages(messages)
{
    if (pixmap)
        _pixmap = *pixmap;
    livingModules().push_back(this);
}

ktModuleBase::~ktModuleBase()
{
    auto& all = livingModules();
    all.erase(std::remove(all.begin(), all.end(), this), all.end());
}

QWidget* ktModuleBase::getWidget() const
{
    return nullptr;
}

void ktModuleBase::init() {}

void ktModuleBase::update() {}

void ktModuleBase::loop() {}

void ktModuleBase::receivedMessage(ktMessage&) {}

void ktModuleBase::drop(const std::function<bool(ktModuleBase*)>& isGone)
{
    auto& all = livingModules();
    all.erase(std::remove_if(all.begin(), all.end(), isGone), all.end());
}

bool ktModuleBase::isLiving(const ktModuleBase* module)
{
    const auto& all = livingModules();
    return std::find(all.begin(), all.end(), module) != all.end();
}

const std::vector<ktModuleBase*>& ktModuleBase::modules()
{
    return livingModules();
}
