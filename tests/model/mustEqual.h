#pragma once

#include "tests/model/HostModel.h"
#include "tests/model/PythonModel.h"

#include <rapidcheck.h>

#include <QString>
#include <QStringList>

#include <ostream>

// Found where rapidcheck looks for the type's own.
inline void showValue(const QString& text, std::ostream& out)
{
    out << (text.isNull() ? std::string("(null)") : '"' + text.toStdString() + '"');
}

inline void showValue(const QStringList& list, std::ostream& out)
{
    out << '[' << list.join(", ").toStdString() << ']';
}

namespace kt::test
{

/// Fails the property where the host has something else than the model.
template <class Value>
void mustEqual(const std::string& what, const Value& is, const Value& expected)
{
    if (!(is == expected))
        RC_FAIL(what + ": the host has " + rc::toString(is) + ", the model has " + rc::toString(expected));
}

/// Here, since the variant is the standard library's.
inline void mustEqual(const std::string& what, const Attributes& is, const Attributes& expected)
{
    const auto words = [](const Attributes& all) {
        std::string text;
        for (const auto& [name, value] : all)
            text += ' ' + name + ' ' + std::visit([](const auto& held) { return pythonText(held); }, value);
        return text;
    };
    if (is != expected)
        RC_FAIL(what + ": the host has" + words(is) + ", the model has" + words(expected));
}

} // namespace kt::test
