#pragma once

#include <osg/Attachment.h>

#include <string>

namespace osg
{

class Name;
using NamePtr = Ptr<Name>;

/// The name attachment: what a node, or its core, is called. Bytes as they came, UTF-8 by custom.
class KT_OSG_EXPORT Name : public Attachment
{
public:
    static const FieldContainerType& getClassType();

    static NamePtr create(std::string value = {});

    const FieldContainerType& getType() const override;

    const std::string& getValue() const { return _value; }

    /// Valid until the value is changed or the attachment goes.
    const char* getCString() const { return _value.c_str(); }

    void setValue(std::string value);

protected:
    explicit Name(std::string value) : _value(std::move(value)) {}

private:
    std::string _value;
};

} // namespace osg
