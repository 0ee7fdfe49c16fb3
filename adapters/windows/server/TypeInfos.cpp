#include "windows/server/TypeInfos.h"

#include "windows/system/WindowsSystem.h"

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

} // namespace sm::windows
