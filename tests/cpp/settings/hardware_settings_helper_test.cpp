#include "settings/hardware_settings_helper.hpp"

#include <gtest/gtest.h>

namespace velmar {
namespace {

const UserPolynomial kIdentity{{0.0, 1.0}};

TEST(HardwareSettingsHelper, MainPotentiostatConfiguration) {
    const auto config = HardwareSettingsHelper::getConfigForMainPotentiostat();
    ASSERT_EQ(config.channels.size(), 2U);
    EXPECT_EQ(config.channels[0], (Channel{"MAIN:1:POT:U~MUX:1:MUX_U", "voltage", "V", kIdentity}));
    EXPECT_EQ(config.channels[1], (Channel{"MAIN:1:POT:I~MUX:1:MUX_I", "current", "A", kIdentity}));
    ASSERT_EQ(config.impedance_configurations.size(), 1U);
    EXPECT_EQ(config.impedance_configurations[0],
              (ImpedanceConfiguration{"MAIN:1:POT:U~MUX:1:MUX_U", "MAIN:1:POT:I~MUX:1:MUX_I", ""}));
    ASSERT_EQ(config.output_potentiostats.size(), 1U);
    EXPECT_EQ(config.output_potentiostats[0], (PotentiostatConfiguration{"MAIN:1:POT", kIdentity, kIdentity}));
}

TEST(HardwareSettingsHelper, ExternalPotentiostatByCardAndConnector) {
    const auto config = HardwareSettingsHelper::getConfigForPotentiostat(PotConnection{1, 2});
    EXPECT_EQ(config.channels[0].uri, "QLC:1:EXT2:POT:U~MUX:1:MUX_U");
    EXPECT_EQ(config.channels[1].uri, "QLC:1:EXT2:POT:I~MUX:1:MUX_I");
    EXPECT_EQ(config.output_potentiostats[0].uri, "QLC:1:EXT2:POT");
}

TEST(HardwareSettingsHelper, PotentiostatUrn) {
    EXPECT_EQ(HardwareSettingsHelper::getPotentiostatUrn("MAIN:1:POT"), "MAIN:1:POT");
    EXPECT_EQ(HardwareSettingsHelper::getPotentiostatUrn("123456"), "123456:POT");
    EXPECT_EQ(HardwareSettingsHelper::getPotentiostatUrn("X-MAIN:1:POT"), "X-MAIN:1:POT");
    EXPECT_EQ(HardwareSettingsHelper::getPotentiostatUrn("MAIN:1:PO"), "MAIN:1:PO:POT");
    EXPECT_EQ(HardwareSettingsHelper::getConfigForPotentiostat("77").output_potentiostats[0].uri, "77:POT");
}

TEST(HardwareSettingsHelper, SyncCurrentChannelsPairWithTheMainVoltage) {
    const auto config =
        HardwareSettingsHelper::getConfigForMainWithSyncCurrentChannel({Mux4Connection{1, 1}, Mux4Connection{1, 2}});
    ASSERT_EQ(config.channels.size(), 4U);
    EXPECT_EQ(config.channels[2].uri, "MUX4:1:CH1~MUX4:1:ADC1");
    EXPECT_EQ(config.channels[3].dimension, "current-MUX4-1-CH2");
    EXPECT_EQ(config.channels[3].unit, "A");
    ASSERT_EQ(config.impedance_configurations.size(), 3U);
    for (std::size_t i = 1; i < 3; ++i) {
        EXPECT_EQ(config.impedance_configurations[i].numerator, "MAIN:1:POT:U~MUX:1:MUX_U");
        EXPECT_EQ(config.impedance_configurations[i].denominator, config.channels[i + 1].uri);
    }
    EXPECT_EQ(config.impedance_configurations[2].impedance_name, "MUX4-1-CH2");
}

TEST(HardwareSettingsHelper, SyncVoltageChannelMirrorsAndDuplicatesCollapse) {
    auto config = HardwareSettingsHelper::getConfigForPotentiostatWithSyncVoltageChannel(PotConnection{2, 1},
                                                                                         {Mux4Connection{1, 3}});
    EXPECT_EQ(config.channels[2].dimension, "voltage-MUX4-1-CH3");
    EXPECT_EQ(config.channels[2].unit, "V");
    EXPECT_EQ(config.impedance_configurations[1].numerator, "MUX4:1:CH3~MUX4:1:ADC3");
    EXPECT_EQ(config.impedance_configurations[1].denominator, "QLC:2:EXT1:POT:I~MUX:1:MUX_I");

    config.addSyncVoltageChannel({Mux4Connection{1, 3}});
    EXPECT_EQ(config.channels.size(), 4U);
    config.removeDuplicatesFromChannels();
    ASSERT_EQ(config.channels.size(), 3U);
    EXPECT_EQ(config.channels[2].uri, "MUX4:1:CH3~MUX4:1:ADC3");
}

TEST(HardwareSettingsHelper, WithoutAPartnerChannelNoImpedanceIsFormed) {
    UserHardwareSettings empty;
    empty.addSyncCurrentChannel({Mux4Connection{1, 1}});
    EXPECT_EQ(empty.channels.size(), 1U);
    EXPECT_TRUE(empty.impedance_configurations.empty());
}

TEST(HardwareSettingsHelper, OwnDimensionAndUnitOfAConnectionWin) {
    Mux4Connection connection{1, 4, UserPolynomial{{0.5, 2.0}}, "pressure", "bar"};
    const auto config = HardwareSettingsHelper::getConfigForMainWithSyncVoltageChannel({connection});
    EXPECT_EQ(config.channels[2], (Channel{"MUX4:1:CH4~MUX4:1:ADC4", "pressure", "bar", UserPolynomial{{0.5, 2.0}}}));
}

TEST(HardwareSettingsHelper, ChannelImpedancePairs) {
    Mux4ImpedanceConfiguration pair{Mux4Connection{1, 1}, Mux4Connection{1, 2}, ""};
    const auto config = HardwareSettingsHelper::getConfigForPotentiostatWithSyncChannelImpedance("55", {pair, pair});
    EXPECT_EQ(config.channels.size(), 4U);
    ASSERT_EQ(config.impedance_configurations.size(), 3U);
    EXPECT_EQ(config.impedance_configurations[1],
              (ImpedanceConfiguration{"MUX4:1:CH1~MUX4:1:ADC1", "MUX4:1:CH2~MUX4:1:ADC2", "MUX4-1-CH1/MUX4-1-CH2"}));
    pair.impedance_name = "z";
    EXPECT_EQ(HardwareSettingsHelper::getConfigForMainWithSyncChannelImpedance({pair}).impedance_configurations[1].impedance_name,
              "z");
}

TEST(Mux4Connection, OrderingAndPaths) {
    EXPECT_LT((Mux4Connection{1, 2}), (Mux4Connection{2, 1}));
    EXPECT_LT((Mux4Connection{1, 1}), (Mux4Connection{1, 2}));
    EXPECT_FALSE((Mux4Connection{1, 1}) < (Mux4Connection{1, 1}));
    EXPECT_EQ((Mux4Connection{3, 4}).getChannelName(), "MUX4-3-CH4");
    EXPECT_EQ(HardwareSettingsHelper::getPotentiostatPath("P", "U", "S"), "P:U~S");
}

}  // namespace
}  // namespace velmar
