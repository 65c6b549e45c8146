// SPDX-License-Identifier: MIT
#include "automation/class_table.h"

namespace vellumark::automation {
namespace {

constexpr ClassInfo kClasses[] = {
    {"PDF", "_PDF", "Class to generate PDF documents.", Class::PDF,
     "11BB1275-8FE8-4DC3-93D5-63DFF6FC283E", "884F8B75-2285-4D21-BF87-DE1A217B6EAC",
     "Vellumark.PDF", "Vellumark.PDF.1"},
    {"PS", "_PS", "Class to generate PS documents.", Class::PS,
     "8AE21F1F-CCEC-472B-B55D-12218DEFB762", "9E5B378A-0BA5-4A61-ADCD-71E0B4D8EE46", "Vellumark.PS",
     "Vellumark.PS.1"},
    {"Enumerations", "_Enumerations", "Class to access the document enumerations.", std::nullopt,
     "31AB29F9-5DB0-4228-9694-15A4C31E4C6F", "DD9B0890-30AA-4688-9E55-EB68231FE290",
     "Vellumark.Enumerations", "Vellumark.Enumerations.1"},
};

}  // namespace

std::span<const ClassInfo> Classes() noexcept { return kClasses; }

}  // namespace vellumark::automation
