#pragma once

namespace velmar {

/// DC measurements with live data: MeasurementJobTemplate<ParameterStruct, JobName> plus the
/// DC live-data machinery; getType() answers 1. Defined in jobs/dc/.
template <class ParameterStruct, const char* JobName>
class DcMeasurementJob;

}  // namespace velmar
