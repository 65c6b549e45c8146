// SPDX-License-Identifier: MIT
//
// A host whose own headers have the names of files of the library.
#include <vellumark/vellumark.h>

#include "document/state.h"
#include "layout/font.h"
#include "platform/platform.h"

int main() {
  const vellumark::PS document;
  return document.Version() == "3.0" ? stranger::kPlatform + stranger::kFont + stranger::kState - 3
                                     : 1;
}
