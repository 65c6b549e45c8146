// SPDX-License-Identifier: MIT
//
// ComponentPointer: owns a reference to an object of Windows, and releases it.
//
//     IStream* stream = nullptr;
//     if (FAILED(CreateStreamOnHGlobal(nullptr, TRUE, &stream))) ...
//     const ComponentPointer<IStream> owned(stream);
#pragma once

#include <memory>
#include <unknwn.h>

namespace vellumark::platform {

struct ReleaseComponent {
  void operator()(IUnknown* object) const { object->Release(); }
};

template <class Interface>
using ComponentPointer = std::unique_ptr<Interface, ReleaseComponent>;

}  // namespace vellumark::platform
