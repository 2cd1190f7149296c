#include "config/Profiles.h"
#include "support/TestFixtures.h"

TEST_F(LumbraTest, ProfileMenuListsSortsTicksAndKeepsItems) {
    for (const char* name : {"fast", "Basic", "clean"})
        WriteProfile(m_state.Store, "Snes9X", name, "-opt");
    WriteProfile(m_state.Store, "ZSnes", "zeta", "-m");
    EXPECT_EQ(ReadProfile(m_state.Store, "ZSnes", "zeta"), "-m");

    // Items are never removed: captions left from earlier builds are sorted with the
    // new ones. "*" marks a ticked item and "-" a disabled one.
    ProfileMenuModel menu;
    const auto build = [&](const char* emulator, const char* profile) {
        // A game record whose last two fields, emulator and profile, are set.
        menu.Build(m_state.Store, emulator, profile);
        QStringList captions;
        for (const ProfileMenuItem& item : menu.Items())
            captions << item.Caption + (item.Checked ? "*" : "") + (item.Enabled ? "" : "-");
        return captions.join(' ');
    };
    EXPECT_EQ(build("Default", ""), "<no profiles found>-");
    EXPECT_EQ(build("snes9x", "BASIC"), "Basic* clean fast");
    EXPECT_EQ(build("ZSNES", "Fast"), "clean fast* zeta");
    EXPECT_EQ(build("", "ZETA"), "clean fast zeta*");
}
