// SPDX-License-Identifier: MIT
#include "automation/server/type_library.h"

#include <oleauto.h>

#include "automation/server/com_pointer.h"
#include "automation/server/guid.h"
#include "automation/server/module.h"

namespace vellumark::automation {

HRESULT LoadTypeInfo(std::string_view id, ITypeInfo** info) {
  *info = nullptr;
  // From the DLL itself and not by registration: it describes this very file. The system
  // shares a library that is in use, so asking again is cheap.
  ComPointer<ITypeLib> library;
  const HRESULT loaded = LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, library.Receive());
  return FAILED(loaded) ? loaded : library->GetTypeInfoOfGuid(ToGuid(id), info);
}

}  // namespace vellumark::automation
