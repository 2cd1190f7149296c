#pragma once

#include <QString>

class SnapshotWizard;
class SnapshotWizardView;
struct Settings;

// The snapshot wizard's two steps around a play the launch waits for.

// Before play: unless a snapshot exists and the settings hide the wizard then, it is
// told to look for new images in folder.
void ArmWizard(SnapshotWizard& wizard, const Settings& options, const QString& folder);

// After play: the new images are offered, or the wizard stays hidden as the settings say.
void OfferNewImages(SnapshotWizard& wizard, const Settings& options, SnapshotWizardView& view);
