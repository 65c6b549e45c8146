// SPDX-License-Identifier: MIT
//
// THAI_WORDS is the path of libthai's dictionary, thbrk.tri.
    .section .rdata, "dr"
    .balign 16
    .globl thai_words
thai_words:
    .incbin THAI_WORDS
    .globl thai_words_end
thai_words_end:
