// SPDX-License-Identifier: MIT
//
// platform_client PICTURES: checks the Windows platform without any test framework, under Windows
// or Wine. Prints a line for each fact and "all facts hold" at the end; otherwise exits with 1.
#include <cstdio>
#include <exception>

#include "tests/windows/facts.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: platform_client PICTURES\n", stderr);
    return 2;
  }
  vellumark::tests::Facts facts;
  try {
    vellumark::tests::CheckOutput(facts);
    vellumark::tests::CheckCodePages(facts);
    vellumark::tests::CheckDocuments(facts, argv[1]);
    vellumark::tests::CheckPictures(facts, argv[1]);
    vellumark::tests::CheckBitmaps(facts);
  } catch (const std::exception& fault) {
    facts.Check("nothing is thrown", false, fault.what());
  }
  if (!facts.AllHold()) return 1;
  std::puts("all facts hold");
  return 0;
}
