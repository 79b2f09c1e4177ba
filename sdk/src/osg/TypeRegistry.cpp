#include "osg/TypeRegistry_p.h"

#include <osg/TypeBase.h>

#include <algorithm>

namespace osg
{
namespace
{

std::vector<const TypeBase*>& types()
{
    static std::vector<const TypeBase*> all; // in order of registration, which is the order of ids
    return all;
}

} // namespace

std::uint32_t TypeRegistryAccess::add(const TypeBase& type)
{
    static std::uint32_t lastId = 0;
    types().push_back(&type);
    return ++lastId;
}

void TypeRegistryAccess::remove(const TypeBase& type)
{
    auto& all = types();
    all.erase(std::remove(all.begin(), all.end(), &type), all.end());
}

const TypeBase* TypeRegistry::find(std::uint32_t id)
{
    for (const TypeBase* type : types()) {
        if (type->getId() == id)
            return type;
    }
    return nullptr;
}

const TypeBase* TypeRegistry::find(const std::string& name)
{
    for (const TypeBase* type : types()) {
        if (type->getName() == name)
            return type;
    }
    return nullptr;
}

} // namespace osg
