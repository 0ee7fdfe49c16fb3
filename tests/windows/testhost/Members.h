// SPDX-License-Identifier: GPL-3.0-or-later
// What the tables of members share.
#pragma once

#include "windows/testhost/TestHost.h"
#include "windows/testhost/TestObject.h"

namespace sm::testhost {

template <class Port>
ComRef<IDispatch> OfferPort(const std::shared_ptr<Port>& port, std::span<const Member<Port>> members)
{
    return port == nullptr ? ComRef<IDispatch>() : ComRef<IDispatch>::Taken(new PortObject<Port>(port, members));
}

inline OwnedVariant Answer(const std::string& value)
{
    return windows::FromText(value);
}
inline OwnedVariant Answer(std::int32_t value)
{
    return windows::FromInteger(value);
}
inline OwnedVariant Answer(double value)
{
    return windows::FromDouble(value);
}
inline OwnedVariant Answer(bool value)
{
    return windows::FromBoolean(value);
}
inline OwnedVariant Answer(const std::vector<std::string>& values)
{
    return windows::FromTexts(values);
}
inline OwnedVariant Answer(const ComRef<IDispatch>& object)
{
    return windows::FromObject(object.Get());
}
inline OwnedVariant Answer3(const AcadPoint& point)
{
    return windows::FromDoubles({point.x, point.y, point.z});
}
/// As plot settings are answered: without a third coordinate.
inline OwnedVariant Answer2(const AcadPoint& point)
{
    return windows::FromDoubles({point.x, point.y});
}

// Tables name the same operation of port and model; these write such rows. `Port` is the table's port.
#define SM_READ(name)                                                                                                  \
    {                                                                                                                  \
#name, kRead, 0, 0, [](Port & port, Invocation&) { return Answer(port.name()); }                               \
    }
#define SM_READ_OBJECT(name)                                                                                           \
    {                                                                                                                  \
#name, kRead, 0, 0, [](Port & port, Invocation&) { return Answer(Offer(port.name())); }                        \
    }
#define SM_WRITE(name, Type)                                                                                           \
    {                                                                                                                  \
#name, kWrite, 1, 1, [](Port& port, Invocation& call) {                                                        \
            port.Set##name(call.Type(0));                                                                              \
            return OwnedVariant();                                                                                     \
        }       \
    }

} // namespace sm::testhost
