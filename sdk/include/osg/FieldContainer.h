#pragma once

#include <osg/Export.h>
#include <osg/FieldMask.h>

namespace osg
{

class FieldContainerType;

/// The base of everything in the scene graph: a typed, reference-counted set of fields.
/// Setters write a field and nothing else; an edit is closed with endEdit() or its steps (see Edit.h).
/// Belongs to the GUI thread; the count is not guarded.
class KT_OSG_EXPORT FieldContainer
{
public:
    static const FieldContainerType& getClassType();

    FieldContainer(const FieldContainer&) = delete;
    FieldContainer& operator=(const FieldContainer&) = delete;

    virtual const FieldContainerType& getType() const = 0;

    /// Told at the end of an edit which fields were written and by whom. The base does nothing.
    virtual void changed(FieldMask which, ChangeOrigin origin);

    /// One owner more; see Ptr, which calls these.
    void addRef() const { ++_references; }

    /// One owner less; the last one destroys the container.
    void subRef() const;

protected:
    /// How many own this container.
    int references() const { return _references; }

    FieldContainer() = default;
    virtual ~FieldContainer();

private:
    mutable int _references = 0;
};

} // namespace osg
