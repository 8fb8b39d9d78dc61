#include "bindings.hpp"

#include "settings/settings_set.hpp"

namespace velmar::python {

namespace {

/// Automatic conversion of a Python value: bool before int (bool is a kind of int), then int,
/// float, str; a Setting is taken as it is; any other object becomes the STRING of its str().
Setting settingFromPython(const py::handle& value) {
    if (py::isinstance<Setting>(value)) return value.cast<Setting>();
    if (py::isinstance<py::bool_>(value)) return Setting(value.cast<bool>());
    if (py::isinstance<py::int_>(value)) return Setting(value.cast<int>());
    if (py::isinstance<py::float_>(value)) return Setting(value.cast<double>());
    if (py::isinstance<py::str>(value)) return Setting(value.cast<std::string>());
    return Setting(py::str(value).cast<std::string>());
}

SettingsSet settingsFromPairs(const py::iterable& pairs) {
    SettingsSet set;
    for (const auto& item : pairs) {
        auto pair = py::reinterpret_borrow<py::sequence>(item);
        if (pair.size() != 2) throw py::value_error("expected (key, value) pairs");
        set[pair[0].cast<std::string>()] = settingFromPython(pair[1]);
    }
    return set;
}

std::vector<std::pair<std::string, Setting>> snapshot(const SettingsSet& set) {
    std::vector<std::pair<std::string, Setting>> entries;
    entries.reserve(set.size());
    for (const auto& [key, setting] : set) entries.emplace_back(key, setting);
    return entries;
}

constexpr const char* kCopyDoc = R"(Return an independent copy.)";
constexpr const char* kDeepCopyDoc = R"(Return an independent copy; ``memo`` is unused.

:param memo: the memo dictionary of :func:`copy.deepcopy`.)";

}  // namespace

void bindSettings(py::module_& m) {
    py::class_<Setting>(m, "Setting", R"(One typed device setting with the outcome of its last update.

A setting holds a ``bool``, an ``int``, a ``float`` or a ``str``; its type is
:class:`velmar_link.SettingType`. Assigning a value of another kind changes the type.)")
        .def(py::init<>(), R"(An uninitialized setting (type ``UNINITIALIZED``).)")
        .def(py::init<bool>(), R"(A ``BOOL`` setting.

:param value: the value.)", "value"_a)
        .def(py::init<int>(), R"(An ``INT`` setting (32-bit signed).

:param value: the value.)", "value"_a)
        .def(py::init<double>(), R"(A ``DOUBLE`` setting.

:param value: the value.)", "value"_a)
        .def(py::init<std::string_view>(), R"(A ``STRING`` setting.

:param value: the value.)", "value"_a)
        .def("assign_string", [](Setting& s, std::string_view v) -> Setting& { return s = v; },
             py::return_value_policy::reference, R"(Make this a ``STRING`` setting holding ``value``.

:param value: the new value.
:returns: the setting itself.)", "value"_a)
        .def("assign_bool", [](Setting& s, bool v) -> Setting& { return s = v; }, py::return_value_policy::reference,
             R"(Make this a ``BOOL`` setting holding ``value``.

:param value: the new value.
:returns: the setting itself.)", "value"_a)
        .def("assign_int", [](Setting& s, int v) -> Setting& { return s = v; }, py::return_value_policy::reference,
             R"(Make this an ``INT`` setting holding ``value``.

:param value: the new value.
:returns: the setting itself.)", "value"_a)
        .def("assign_double", [](Setting& s, double v) -> Setting& { return s = v; },
             py::return_value_policy::reference, R"(Make this a ``DOUBLE`` setting holding ``value``.

:param value: the new value.
:returns: the setting itself.)", "value"_a)
        .def("get_type", &Setting::getType, R"(:returns: the :class:`velmar_link.SettingType` of the value.)")
        .def("get_string_value", &Setting::getStringValue, R"(The value of a ``STRING`` setting.

:raises RuntimeError: if the setting holds another kind.)")
        .def("get_bool_value", &Setting::getBoolValue, R"(The value of a ``BOOL`` setting.

:raises RuntimeError: if the setting holds another kind.)")
        .def("get_int_value", &Setting::getIntValue, R"(The value of an ``INT`` setting.

:raises RuntimeError: if the setting holds another kind.)")
        .def("get_double_value", &Setting::getDoubleValue, R"(The value of a ``DOUBLE`` setting.

:raises RuntimeError: if the setting holds another kind.)")
        .def("as_string", &Setting::asString, R"(The value as text.

``BOOL`` gives "true" or "false", ``INT`` the decimal number, ``DOUBLE`` six significant
digits in the shorter of fixed and exponent form, ``STRING`` the string itself.)")
        .def("successfully_updated", &Setting::successfullyUpdated,
             R"(True if the last update request applied this setting.)")
        .def("get_update_failure_reason", &Setting::getUpdateFailureReason,
             R"(:returns: the :class:`velmar_link.ErrorObject` of the last failed update, or the success value.)")
        .def("__str__", &Setting::asString, R"(Same text as :meth:`as_string`.)")
        .def("__copy__", [](const Setting& s) { return s; }, kCopyDoc)
        .def("__deepcopy__", [](const Setting& s, const py::object&) { return s; }, kDeepCopyDoc, "memo"_a);

    py::class_<SettingsSet>(m, "SettingsSet", R"(The keyed collection of device settings.

Read with :meth:`velmar_link.VelmarLink.get_settings`, changed by subscript, written with
:meth:`velmar_link.VelmarLink.update_settings`, which stores each entry's outcome in the set.
Values assigned by subscript are converted automatically: ``bool`` to ``BOOL``, ``int`` to
``INT``, ``float`` to ``DOUBLE``, ``str`` to ``STRING``, anything else to the ``STRING`` of its
``str()``.)")
        .def(py::init<>(), R"(An empty set.)")
        .def(py::init<const std::vector<std::pair<std::string, Setting>>&>(),
             R"(A set from a list of (key, :class:`velmar_link.Setting`) pairs.

:param entries: the pairs; a repeated key keeps its last value.)", "entries"_a)
        .def(py::init(&settingsFromPairs), R"(A set from a list of (key, value) pairs with automatic conversion.

:param entries: the pairs; a repeated key keeps its last value.)", "entries"_a)
        .def("__getitem__",
             [](SettingsSet& set, const std::string& key) -> py::object {
                 if (!set.contains(key)) return py::cast(Setting());
                 return py::cast(&set[key], py::return_value_policy::reference_internal, py::cast(&set));
             },
             R"(The setting stored under ``key`` (changes to it change the set).

A missing key yields a new ``UNINITIALIZED`` setting; the set does not grow.

:param key: the setting's name.)", "key"_a)
        .def("__setitem__",
             [](SettingsSet& set, const std::string& key, const py::object& value) {
                 set[key] = settingFromPython(value);
             },
             R"(Store a :class:`velmar_link.Setting`, or a value with automatic conversion, under ``key``.

:param key: the setting's name.
:param value: a Setting, bool, int, float, str or any object (stored as its ``str()``).)", "key"_a,
             "value"_a)
        .def("__len__", &SettingsSet::size, R"(The number of entries.)")
        .def("__contains__", &SettingsSet::contains, R"(True if ``key`` is in the set.

:param key: the setting's name.)", "key"_a)
        .def("__iter__", [](const SettingsSet& set) { return py::iter(py::cast(snapshot(set))); },
             R"(Iterate over (key, :class:`velmar_link.Setting`) tuples of a snapshot of the set.)")
        .def("keys",
             [](const SettingsSet& set) {
                 std::vector<std::string> keys;
                 keys.reserve(set.size());
                 for (const auto& entry : set) keys.push_back(entry.first);
                 return keys;
             },
             R"(:returns: the list of key names.)")
        .def("all_successfully_updated", &SettingsSet::allSuccessfullyUpdated,
             R"(True if every entry was applied by the last update; an empty set yields True.)")
        .def("__copy__", [](const SettingsSet& s) { return s; }, kCopyDoc)
        .def("__deepcopy__", [](const SettingsSet& s, const py::object&) { return s; }, kDeepCopyDoc, "memo"_a);
}

}  // namespace velmar::python
