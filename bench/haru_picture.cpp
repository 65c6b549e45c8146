// SPDX-License-Identifier: MIT
#include <hpdf.h>

#include "bench/fail.h"
#include "bench/picture_writers.h"

namespace vellumark::bench {
namespace {

void OnError(HPDF_STATUS /*error*/, HPDF_STATUS /*detail*/, void* /*user_data*/) {
  Fail("libharu", "a call was refused");
}

}  // namespace

void WriteWithHaru(const Raster& picture, const char* path) {
  HPDF_Doc pdf = HPDF_New(OnError, nullptr);
  if (pdf == nullptr) Fail("libharu", "no document");
  HPDF_SetCompressionMode(pdf, HPDF_COMP_IMAGE);
  HPDF_Page page = HPDF_AddPage(pdf);
  HPDF_Image image =
      HPDF_LoadRawImageFromMem(pdf, picture.samples.data(), static_cast<HPDF_UINT>(picture.width),
                               static_cast<HPDF_UINT>(picture.height), HPDF_CS_DEVICE_RGB, 8);
  HPDF_Page_DrawImage(page, image, 50, 400, 495, 371);
  HPDF_SaveToFile(pdf, path);
  HPDF_Free(pdf);
}

}  // namespace vellumark::bench
