#pragma once

#include "platform/widgets/Form.h"

#include <QList>

#include <algorithm>

// Finding a form's own controls by their type, for the services that work on
// "the form's status bar" or "the form's icon menu".
namespace presentation {

// The form a control belongs to: the nearest form among its parents. A form shown
// over another may be that form's child, and its controls are still its own.
inline const Form* owningForm(const QObject* control)
{
    for (const QObject* object = control->parent(); object; object = object->parent())
        if (const auto* form = qobject_cast<const Form*>(object))
            return form;
    return nullptr;
}

// The form's own control of a type (its status bar, its icon menu control); a
// form without one gives null.
template <typename Control> Control* controlOf(const Form* form)
{
    if (!form)
        return nullptr;
    const QList<Control*> controls = form->findChildren<Control*>();
    const auto own = std::find_if(controls.begin(), controls.end(),
                                  [form](const Control* control) { return owningForm(control) == form; });
    return own == controls.end() ? nullptr : *own;
}

} // namespace presentation
