// Wire texts of the enumerations whose names come from their descriptions, letter for letter.

#include "json_common/configuration/workstation_info.hpp"
#include "json_common/enum_names.hpp"
#include "json_common/job_parameters/calibration_parameters.hpp"
#include "json_common/job_parameters/drift_correction.hpp"
#include "json_common/job_parameters/potentiostat_coupling.hpp"
#include "json_common/resources/resource.hpp"

#include <boost/json.hpp>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velmar {
namespace {

TEST(EnumWireNames, CalibrationTypesByValueAndInOfferedOrder) {
    const std::vector<std::string> byValue{
        "dump",          "load",           "dc",          "main_shunts_dc",     "external_potentiostat_dc",
        "filter",        "gain",           "mux_filter",  "mux_gain",           "mux4_filter",
        "mux4_gain",     "mux4_dc_gain",   "voltage_range", "shunt_open",       "shunt_load",
        "shunt_short",   "shunt_reference", "main_voltage_range", "main_shunt_open", "main_shunt_load",
        "main_shunt_short", "reference_adc"};
    for (std::uint32_t value = 0; value < byValue.size(); ++value) {
        EXPECT_EQ(calibrationTypesEnumToString(static_cast<CalibrationTypesEnum>(value)), byValue[value]) << value;
    }
    EXPECT_EQ(calibrationTypesEnumToString(static_cast<CalibrationTypesEnum>(22)), "dc");
    EXPECT_EQ(calibrationTypesEnumToString(static_cast<CalibrationTypesEnum>(0xffffffff)), "dc");

    // Offered in this order, which is not the order of the values.
    std::vector<std::string_view> described;
    boost::mp11::mp_for_each<boost::describe::describe_enumerators<CalibrationTypesEnum>>(
        [&](auto descriptor) { described.push_back(descriptor.name); });
    ASSERT_EQ(described.size(), 22u);
    EXPECT_EQ(described[0], "DC");
    EXPECT_EQ(described[1], "MAIN_SHUNTS_DC");
    EXPECT_EQ(described[2], "EXTERNAL_POTENTIOSTAT_DC");
    EXPECT_EQ(described[3], "DUMP");
    EXPECT_EQ(described[4], "LOAD");
    EXPECT_EQ(described[21], "REFERENCE_ADC");
}

TEST(EnumWireNames, CalibrationDataValuesCarryTheirLowerCaseType) {
    CalibrationDataValue value;
    value.value = std::vector<double>{1.0, 2.0};
    const auto jv = boost::json::value_from(value);
    EXPECT_EQ(jv.at("type"), "float_vector");
    EXPECT_EQ(boost::json::value_to<CalibrationDataValue>(jv).getType(), CalibrationDataTypeEnum::FLOAT_VECTOR);
    value.value = std::string("x");
    EXPECT_EQ(boost::json::value_from(value).at("type"), "string");
    EXPECT_EQ(calibrationDataTypeName(CalibrationDataTypeEnum::SPECTRA), "spectra");
    EXPECT_EQ(calibrationDataTypeName(CalibrationDataTypeEnum::FLOAT), "float");
    EXPECT_THROW(boost::json::value_to<CalibrationDataValue>(boost::json::parse(R"({"type":"FLOAT","value":1})")),
                 std::invalid_argument);
}

TEST(EnumWireNames, UpperCaseNamesAndTheirFallbacks) {
    EXPECT_EQ(potentiostatCouplingName(PotentiostatCoupling::FRA_PROBE), "FRA_PROBE");
    EXPECT_EQ(potentiostatCouplingName(static_cast<PotentiostatCoupling>(7)), "POTENTIOSTATIC");
    EXPECT_EQ(potentiostatCouplingFromName("GALVANOSTATIC"), PotentiostatCoupling::GALVANOSTATIC);
    EXPECT_FALSE(potentiostatCouplingFromName("galvanostatic"));

    EXPECT_EQ(workstationModeName(WorkstationModeEnum::EMULATION), "EMULATION");
    EXPECT_EQ(workstationModeName(static_cast<WorkstationModeEnum>(3)), "NORMAL");
    EXPECT_EQ(workstationModeFromName("FAILSAFE"), WorkstationModeEnum::FAILSAFE);
    EXPECT_EQ(static_cast<std::uint32_t>(*workstationModeFromName("EMULATION")), 1000u);
    EXPECT_FALSE(workstationModeFromName("Normal"));

    const std::vector<std::string> resources{"UNDEFINED",     "FIRMWARE_UPDATE", "WAVE",      "CALIB_MESH",
                                             "VELMAR_BINARY", "DEBUG_INFO",      "JOB_RESULT"};
    for (std::uint32_t value = 0; value < resources.size(); ++value) {
        EXPECT_EQ(resourceTypeName(static_cast<ResourceTypeEnum>(value)), resources[value]);
        EXPECT_EQ(resourceTypeFromName(resources[value]), static_cast<ResourceTypeEnum>(value));
    }
    EXPECT_EQ(resourceTypeName(static_cast<ResourceTypeEnum>(7)), "UNDEFINED");
    EXPECT_FALSE(resourceTypeFromName("job_result"));

    EXPECT_EQ(driftCorrectionName(DriftCorrection::DC_ONLY), "DC_ONLY");
    EXPECT_EQ(driftCorrectionName(static_cast<DriftCorrection>(9)), "FULL");
    EXPECT_EQ(driftCorrectionFromName("OFF"), DriftCorrection::OFF);
    EXPECT_FALSE(driftCorrectionFromName("off"));
    EXPECT_EQ(enumName(VelmarLinkConnectionStatusEnum::CONNECTED), "CONNECTED");
}

}  // namespace
}  // namespace velmar
