#pragma once

#include <QString>

// Removes what killed writes of the store's file left beside it for good: the save
// file's temporary copies, named after the file with "." and six random letters
// ("Lumbra.conf.aBcDeF"). Nothing is removed while another process writes the file.
void RemoveSaveFileLeftovers(const QString& storeFile);
