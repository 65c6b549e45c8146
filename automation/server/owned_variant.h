// SPDX-License-Identifier: MIT
//
// OwnedVariant: a VARIANT that frees what it holds.
#pragma once

#include <windows.h>
#include <oleauto.h>

namespace vellumark::automation {

class OwnedVariant {
 public:
  OwnedVariant() noexcept { VariantInit(&variant_); }
  OwnedVariant(const OwnedVariant&) = delete;
  OwnedVariant& operator=(const OwnedVariant&) = delete;
  OwnedVariant(OwnedVariant&&) = delete;
  OwnedVariant& operator=(OwnedVariant&&) = delete;
  ~OwnedVariant() { VariantClear(&variant_); }

  VARIANT* operator->() noexcept { return &variant_; }
  VARIANT& operator*() noexcept { return variant_; }

  /// Hands the content over to the caller and is empty.
  [[nodiscard]] VARIANT Take() noexcept {
    const VARIANT taken = variant_;
    VariantInit(&variant_);
    return taken;
  }

 private:
  VARIANT variant_{};
};

}  // namespace vellumark::automation
