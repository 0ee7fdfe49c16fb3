#include "windows/objects/TypeInfos.h"

#include "windows/system/OwnModule.h"

#include <mutex>
#include <oleauto.h>

namespace sm::windows {

std::shared_ptr<TypeInfos> TypeInfos::Shared()
{
    static std::mutex reading;
    static std::weak_ptr<TypeInfos> shared;
    const std::scoped_lock lock(reading);
    auto infos = shared.lock();
    if (!infos) {
        ComRef<ITypeLib> library;
        if (FAILED(LoadTypeLibEx(OwnModulePath().c_str(), REGKIND_NONE, library.Receive())))
            return nullptr;
        infos = std::make_shared<TypeInfos>(std::move(library));
        shared = infos;
    }
    return infos;
}

ComRef<ITypeInfo> TypeInfos::Of(REFIID interfaceId)
{
    ComRef<ITypeInfo> info;
    m_library->GetTypeInfoOfGuid(interfaceId, info.Receive());
    return info;
}

namespace {

/// Arguments that a caller gives; the place of the result is none.
UINT PlacesOf(const FUNCDESC& function)
{
    const auto places = static_cast<UINT>(function.cParams);
    const bool returns =
        places > 0 && (function.lprgelemdescParam[places - 1].paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0;
    return returns ? places - 1 : places;
}

} // namespace

bool MayTake(ITypeInfo& described, DISPID member, WORD kind, UINT arguments)
{
    bool found = false, fits = false;
    FUNCDESC* function = nullptr;
    for (UINT i = 0; !fits && SUCCEEDED(described.GetFuncDesc(i, &function)); ++i) {
        if (function->memid == member && (static_cast<WORD>(function->invkind) & kind) != 0) {
            found = true;
            fits = arguments <= PlacesOf(*function);
        }
        described.ReleaseFuncDesc(function);
    }
    return fits || !found;
}

} // namespace sm::windows
