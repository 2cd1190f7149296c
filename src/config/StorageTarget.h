#pragma once

#include <QString>

// The word that every import and export takes: "reg"/"registry" selects the
// settings store, "file"/"ini" the file form, and any other word does nothing.
enum class StorageTarget { None, Store, File };

StorageTarget ParseStorageTarget(const QString& word);
