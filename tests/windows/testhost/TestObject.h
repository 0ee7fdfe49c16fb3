// SPDX-License-Identifier: GPL-3.0-or-later
// An automation object of the test host: any port of the plug-in, offered late-bound by the names of the model.
#pragma once

#include "ports/HostError.h"
#include "windows/automation/Values.h"

#include <span>
#include <string_view>

namespace sm::testhost {

using windows::ComRef;
using windows::OwnedVariant;

/// How a call that the doubles were told to fail looks to the caller. Everything else that fails is an exception with
/// the double's text.
enum class Failure {
    Exception,
    Unspecified,
    Disconnected,
    // The call succeeds, with an answer that no operation gives.
    WrongType,
    EmptyArray,
    // Or with what stands for nothing.
    Empty,
    Null,
    NoObject,
    NoUnknown,
    NoText,
    LeftOut
};
/// What injected failures look like in this process from now on.
void ShowFailuresAs(Failure failure);
/// Called before every call on any object of this process; null for nothing.
void BeforeEveryCall(void (*hook)());

/// The arguments of one call, first to last.
class Invocation {
public:
    explicit Invocation(const DISPPARAMS& parameters) : m_parameters(parameters) {}
    [[nodiscard]] unsigned Count() const { return m_parameters.cArgs; }
    /// Throws HostError when there are not that many.
    [[nodiscard]] VARIANT& Raw(unsigned index) const;
    [[nodiscard]] bool IsGiven(unsigned index) const;
    [[nodiscard]] std::string Text(unsigned index) const { return windows::ToText(Raw(index)); }
    [[nodiscard]] std::int32_t Integer(unsigned index) const { return windows::ToInteger(Raw(index)); }
    [[nodiscard]] double Number(unsigned index) const { return windows::ToDouble(Raw(index)); }
    [[nodiscard]] bool Boolean(unsigned index) const { return windows::ToBoolean(Raw(index)); }
    [[nodiscard]] AcadPoint Point(unsigned index) const { return windows::ToPoint(Raw(index)); }
    /// Fills an argument that is given by reference; throws HostError when it isn't.
    void Answer(unsigned index, OwnedVariant value) const;
    /// Puts `value` into every argument that is given by reference as a VARIANT.
    void AnswerAll(const VARIANT& value) const;

private:
    const DISPPARAMS& m_parameters;
};

inline constexpr WORD kRead = DISPATCH_PROPERTYGET | DISPATCH_METHOD;
inline constexpr WORD kWrite = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;

// The system's interfaces have no virtual destructors: their objects end with their last reference.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// The IDispatch of one object; what its members do is the derived class's.
class TestObject : public IDispatch {
public:
    TestObject();
    virtual ~TestObject();
    TestObject(const TestObject&) = delete;
    TestObject& operator=(const TestObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID interfaceId, LCID locale, WORD kind, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) override;

    /// The test object behind an automation object of this process; null for null. Throws HostError for others'.
    static TestObject* Behind(IDispatch* object);
    /// Objects alive in this process.
    static long Alive();
    /// How long members of test objects ran so far in this process, in ticks of the performance counter.
    static long long TicksInside();

protected:
    /// Position of the first member of that name, letter case aside; -1 when there is none.
    [[nodiscard]] virtual int Find(std::string_view name) const = 0;
    /// Runs the member that `id` was found for, in the way of `kind`; false when it can't be used so.
    virtual bool Run(int id, WORD kind, Invocation& call, OwnedVariant& result) = 0;

private:
    long m_references = 1;
};

bool SameName(std::string_view left, std::string_view right);

/// One member of a port: `run` gets the arguments and answers with the result, nothing for none.
template <class Port> struct Member {
    std::string_view name;
    WORD kind;
    unsigned least, most; ///< how many arguments
    OwnedVariant (*run)(Port& port, Invocation& call);
};

template <class Port> class PortObject final : public TestObject {
public:
    PortObject(std::shared_ptr<Port> port, std::span<const Member<Port>> members)
        : m_port(std::move(port)), m_members(members)
    {
    }
    [[nodiscard]] const std::shared_ptr<Port>& Behind() const { return m_port; }

protected:
    [[nodiscard]] int Find(std::string_view name) const override
    {
        for (std::size_t i = 0; i < m_members.size(); ++i) {
            if (SameName(m_members[i].name, name))
                return static_cast<int>(i);
        }
        return -1;
    }
    bool Run(int id, WORD kind, Invocation& call, OwnedVariant& result) override
    {
        if (id < 0 || static_cast<std::size_t>(id) >= m_members.size())
            return false;
        const std::string_view name = m_members[static_cast<std::size_t>(id)].name;
        for (const Member<Port>& member : m_members) {
            if (member.name != name || (member.kind & kind) == 0)
                continue;
            if (call.Count() < member.least || call.Count() > member.most)
                throw HostError("Invalid number of parameters");
            result = member.run(*m_port, call);
            return true;
        }
        return false;
    }

private:
    std::shared_ptr<Port> m_port;
    std::span<const Member<Port>> m_members;
};

#pragma GCC diagnostic pop

} // namespace sm::testhost
