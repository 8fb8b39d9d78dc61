#include "bindings.hpp"

#include "bind_jobs_common.hpp"
#include "velmar_link_json/jobs/common/stop_conditions.hpp"

namespace velmar::python {

namespace {

template <class Condition>
void bindCondition(py::module_& m, const char* name, const char* doc) {
    using P = typename Condition::Parameters;
    py::class_<Condition, AbstractStopCondition, std::shared_ptr<Condition>> cls(m, name, doc);
    defineDescribedInit<P>(cls, [](P parameters) { return std::make_shared<Condition>(std::move(parameters)); },
                           "Create the stop condition; the limits are keyword arguments.");
    boost::mp11::mp_for_each<DescribedMembers<P>>([&](auto member) {
        cls.def_property_readonly(
            member.name, [pointer = member.pointer](const Condition& condition) { return condition.getParameters().*pointer; },
            "The value passed to the constructor.");
    });
}

}  // namespace

void bindStopConditions(py::module_& m) {
    auto stop = submodule(m, "meas").attr("stop").cast<py::module_>();
    py::class_<AbstractStopCondition, std::shared_ptr<AbstractStopCondition>>(
        stop, "AbstractStopCondition", "Abstract base class for stop conditions.")
        .def("get_type_name", [](const AbstractStopCondition& c) { return std::string(c.getTypeName()); },
             "The type name sent as \"type\", for example \"min_max\".")
        .def("get_parameters_json", [](const AbstractStopCondition& c) { return boost::json::serialize(c.getParameterObject()); },
             "The parameters as JSON text.");

    bindCondition<MinLimitStopCondition>(stop, "MinLimitStopCondition",
                                         "Stops the job when the dimension falls below the minimum.");
    bindCondition<MaxLimitStopCondition>(stop, "MaxLimitStopCondition",
                                         "Stops the job when the dimension exceeds the maximum.");
    bindCondition<MinMaxLimitStopCondition>(stop, "MinMaxLimitStopCondition",
                                            "Stops the job when the dimension leaves the band between minimum and maximum.");
    bindCondition<IntegratingLimitStopCondition>(
        stop, "IntegratingLimitStopCondition",
        "Stops the job when the integral of the absolute value of one dimension over another (for example current "
        "over time) exceeds the maximum.");
    bindCondition<StabilityToleranceLimitStopCondition>(
        stop, "StabilityToleranceLimitStopCondition",
        "Stops the job when the change of the dimension per second stays below the absolute tolerance; evaluated "
        "only after the minimum duration in seconds.");
    bindCondition<InRangeStopCondition>(
        stop, "InRangeStopCondition",
        "Stops the job when the value lies within the range, bounds included (value >= minimum and value <= maximum).");
}

}  // namespace velmar::python
