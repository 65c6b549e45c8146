// SPDX-License-Identifier: MIT
//
// The dictionary of Thai words in memory, for libdatrie, which reads its tries from files. A build
// of that library that includes this header first (gcc -include) opens the dictionary of the
// module, whatever file it is asked for; so vellumark.dll and vellumark.exe stay single files.
#pragma once

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

/* words.S; the names stand in quotes because 32-bit Windows would put "_" before them. */
extern const unsigned char thai_words[] __asm__("thai_words");
extern const unsigned char thai_words_end[] __asm__("thai_words_end");

typedef struct {
  long place;
} MemoryFile;

static inline MemoryFile* OpenMemoryFile(const char* mode) {
  return mode[0] == 'r' ? (MemoryFile*)calloc(1, sizeof(MemoryFile)) : NULL;
}

static inline size_t ReadMemoryFile(void* to, size_t size, size_t count, MemoryFile* file) {
  const size_t left = (size_t)(thai_words_end - thai_words) - (size_t)file->place;
  if (count > left / size) count = left / size;
  memcpy(to, thai_words + file->place, size * count);
  file->place += (long)(size * count);
  return count;
}

#define FILE MemoryFile
#define fopen(path, mode) OpenMemoryFile(mode)
#define fclose(file) free(file)
#define fread ReadMemoryFile
#define fwrite(from, size, count, file) ((size_t)0)
#define ftell(file) ((file)->place)
#define fseek(file, to, from_start) ((file)->place = (to), 0)
