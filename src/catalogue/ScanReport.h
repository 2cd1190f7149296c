#pragma once

#include <QString>

// The files a scan found but left out of the catalogue, for the player to see.
struct ScanReport {
    int LeftOutFull = 0;      // beyond the catalogue's 1,000 games
    int LeftOutNames = 0;     // names that are not valid UTF-8, which no path can name again
    int LeftOutCaseTwins = 0; // a name that another file of the folder holds in other letter case

    ScanReport& operator+=(const ScanReport& other);
    bool IsComplete() const { return LeftOutFull + LeftOutNames + LeftOutCaseTwins == 0; }
    // One sentence for each kind of file left out; empty when none was.
    QString Summary() const;
};
