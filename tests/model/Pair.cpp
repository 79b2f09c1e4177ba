#include "tests/model/Pair.h"

#include "tests/model/Chance.h"

namespace kt::test
{

Pair::Pair(RealHost& real) : host(real)
{
    host.putBack();
    model.module.panel.cycleInterval = 1.0;
    model.close();
    perform(WriteScene{"a.wrl", firstScene()});
    perform(Open{"a.wrl", Road::Host});
}

void Pair::perform(const Step& step)
{
    std::visit([this](const auto& what) { perform(what); }, step);
}

} // namespace kt::test
