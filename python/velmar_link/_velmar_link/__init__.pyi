"""
velmar_link library enabling programmatic control of Velmar RQ5 potentiostats
"""
from __future__ import annotations
import collections.abc
import datetime
import enum
import numpy
import os
import typing
import typing_extensions
from . import xml
from . import control
from . import meas
from . import calibration
__all__: list[str] = ['AbstractDataset', 'AbstractMeasurementJob', 'AcLiveDataCollector', 'BandwidthRange', 'CalibrationDataTypeEnum', 'CalibrationTypesEnum', 'CardInfo', 'Channel', 'ColumnHeader', 'ComplianceRange', 'CurrentRange', 'DataSet', 'DatasetInfo', 'DatasetType', 'DcDataset', 'DcLiveDataCollector', 'DriftCorrection', 'EisDataset', 'ErrorCodeEnum', 'ErrorObject', 'ErrorParameter', 'EventTypeEnum', 'FilterRange', 'GainRange', 'HardwareInfo', 'HardwareSettings', 'HardwareSettingsHelper', 'ImpedanceConfiguration', 'ImpedanceData', 'ImpedanceDataHeader', 'JobInfo', 'JobOptions', 'JobStatusDetailEnum', 'JobStatusEnum', 'LiveDataHeader', 'LiveDataHeaderEis', 'LiveDataRowEis', 'LiveDataWavesEis', 'LogSeverityEnum', 'Mux4Connection', 'Mux4ImpedanceConfiguration', 'PathData', 'PathDataHeader', 'PathInfo', 'PotConnection', 'PotentiostatConfiguration', 'PotentiostatCoupling', 'PotentiostatData', 'PotentiostatDataHeader', 'PotentiostatInfo', 'QueueStopModeEnum', 'Resource', 'ResourceTypeEnum', 'Setting', 'SettingType', 'SettingsSet', 'SwitchOnInfo', 'TrackNames', 'UnitNames', 'UserHardwareSettings', 'UserPolynomial', 'VelmarLink', 'VelmarLinkConnectionFlags', 'VelmarLinkConnectionStatusEnum', 'VelmarLinkEventHandler', 'VelmarLinkExc', 'VelmarLinkException', 'VoltageRange', 'VrbImporter', 'WebsocketConnectionInfo', 'WorkstationInfo', 'WorkstationModeEnum', 'WorkstationStatus', 'add', 'calibration', 'control', 'factorial', 'meas', 'xml']
class SettingType(enum.Enum):
    """
    Type enumeration for Setting values
    """
    BOOL: typing.ClassVar[SettingType]
    DOUBLE: typing.ClassVar[SettingType]
    INT: typing.ClassVar[SettingType]
    STRING: typing.ClassVar[SettingType]
    UNINITIALIZED: typing.ClassVar[SettingType]
    @classmethod
    def __new__(cls, value):
        ...
class JobStatusEnum(enum.Enum):
    """
    Enum which indicates the status of the job.
    """
    DELETED: typing.ClassVar[JobStatusEnum]
    FAILED: typing.ClassVar[JobStatusEnum]
    FINISHED: typing.ClassVar[JobStatusEnum]
    PENDING: typing.ClassVar[JobStatusEnum]
    RUNNING: typing.ClassVar[JobStatusEnum]
    UNKNOWN: typing.ClassVar[JobStatusEnum]
    @classmethod
    def __new__(cls, value):
        ...
class VelmarLinkConnectionStatusEnum(enum.Enum):
    """
    Indicates the connection status.
    """
    CONNECTED: typing.ClassVar[VelmarLinkConnectionStatusEnum]
    DISCONNECTED: typing.ClassVar[VelmarLinkConnectionStatusEnum]
    @classmethod
    def __new__(cls, value):
        ...
class JobStatusDetailEnum(enum.Enum):
    """
    An enum that explains the status in more detail.
    """
    CANCELLED_BEFORE_RUN: typing.ClassVar[JobStatusDetailEnum]
    CONNECTION_LOSS: typing.ClassVar[JobStatusDetailEnum]
    FAILED_TO_CREATE: typing.ClassVar[JobStatusDetailEnum]
    FUNCTIONAL_LIMIT_OCCURRED: typing.ClassVar[JobStatusDetailEnum]
    NOT_CONNECTED: typing.ClassVar[JobStatusDetailEnum]
    NOT_FINISHED: typing.ClassVar[JobStatusDetailEnum]
    RUNTIME_ERROR: typing.ClassVar[JobStatusDetailEnum]
    RUN_TO_COMPLETION: typing.ClassVar[JobStatusDetailEnum]
    SAFETY_LIMIT_OCCURRED: typing.ClassVar[JobStatusDetailEnum]
    STOPPED_BY_USER: typing.ClassVar[JobStatusDetailEnum]
    @classmethod
    def __new__(cls, value):
        ...
class QueueStopModeEnum(enum.Enum):
    """
    Enum with which you can select what should happen when the criteria is met.
    """
    QUEUE_STOP_MODE_CONTINUE: typing.ClassVar[QueueStopModeEnum]
    QUEUE_STOP_MODE_FLUSH: typing.ClassVar[QueueStopModeEnum]
    @classmethod
    def __new__(cls, value):
        ...
class PotentiostatCoupling(enum.Enum):
    """
    Enum with which you can select the feedback mode.
    """
    FRA_PROBE: typing.ClassVar[PotentiostatCoupling]
    GALVANOSTATIC: typing.ClassVar[PotentiostatCoupling]
    POTENTIOSTATIC: typing.ClassVar[PotentiostatCoupling]
    @classmethod
    def __new__(cls, value):
        ...
class DriftCorrection(enum.Enum):
    """
    Enum with which you can select how much of the drift correction an EIS measurement applies.
    """
    DC_ONLY: typing.ClassVar[DriftCorrection]
    FULL: typing.ClassVar[DriftCorrection]
    OFF: typing.ClassVar[DriftCorrection]
    @classmethod
    def __new__(cls, value):
        ...
class CalibrationTypesEnum(enum.Enum):
    """
    Enum which indicates the type of the calibration.
    """
    DC: typing.ClassVar[CalibrationTypesEnum]
    DUMP: typing.ClassVar[CalibrationTypesEnum]
    EXTERNAL_POTENTIOSTAT_DC: typing.ClassVar[CalibrationTypesEnum]
    FILTER: typing.ClassVar[CalibrationTypesEnum]
    GAIN: typing.ClassVar[CalibrationTypesEnum]
    LOAD: typing.ClassVar[CalibrationTypesEnum]
    MAIN_SHUNTS_DC: typing.ClassVar[CalibrationTypesEnum]
    MAIN_SHUNT_LOAD: typing.ClassVar[CalibrationTypesEnum]
    MAIN_SHUNT_OPEN: typing.ClassVar[CalibrationTypesEnum]
    MAIN_SHUNT_SHORT: typing.ClassVar[CalibrationTypesEnum]
    MAIN_VOLTAGE_RANGE: typing.ClassVar[CalibrationTypesEnum]
    MUX4_DC_GAIN: typing.ClassVar[CalibrationTypesEnum]
    MUX4_FILTER: typing.ClassVar[CalibrationTypesEnum]
    MUX4_GAIN: typing.ClassVar[CalibrationTypesEnum]
    MUX_FILTER: typing.ClassVar[CalibrationTypesEnum]
    MUX_GAIN: typing.ClassVar[CalibrationTypesEnum]
    REFERENCE_ADC: typing.ClassVar[CalibrationTypesEnum]
    SHUNT_LOAD: typing.ClassVar[CalibrationTypesEnum]
    SHUNT_OPEN: typing.ClassVar[CalibrationTypesEnum]
    SHUNT_REFERENCE: typing.ClassVar[CalibrationTypesEnum]
    SHUNT_SHORT: typing.ClassVar[CalibrationTypesEnum]
    VOLTAGE_RANGE: typing.ClassVar[CalibrationTypesEnum]
    @classmethod
    def __new__(cls, value):
        ...
class CalibrationDataTypeEnum(enum.Enum):
    """
    Enum which indicates the data type of the calibration data.
    """
    FLOAT: typing.ClassVar[CalibrationDataTypeEnum]
    FLOAT_VECTOR: typing.ClassVar[CalibrationDataTypeEnum]
    SPECTRA: typing.ClassVar[CalibrationDataTypeEnum]
    STRING: typing.ClassVar[CalibrationDataTypeEnum]
    UNDEFINED: typing.ClassVar[CalibrationDataTypeEnum]
    @classmethod
    def __new__(cls, value):
        ...
class ResourceTypeEnum(enum.Enum):
    """
    Enum which indicates the type of the resource.
    """
    CALIB_MESH: typing.ClassVar[ResourceTypeEnum]
    DEBUG_INFO: typing.ClassVar[ResourceTypeEnum]
    FIRMWARE_UPDATE: typing.ClassVar[ResourceTypeEnum]
    JOB_RESULT: typing.ClassVar[ResourceTypeEnum]
    UNDEFINED: typing.ClassVar[ResourceTypeEnum]
    VELMAR_BINARY: typing.ClassVar[ResourceTypeEnum]
    WAVE: typing.ClassVar[ResourceTypeEnum]
    @classmethod
    def __new__(cls, value):
        ...
class WorkstationModeEnum(enum.Enum):
    """
    Enum indicating the operating mode of the RQ5
    
    Indicates whether the device can be used normally or whether it is in recovery mode for resetting settings.
    """
    EMULATION: typing.ClassVar[WorkstationModeEnum]
    FAILSAFE: typing.ClassVar[WorkstationModeEnum]
    NORMAL: typing.ClassVar[WorkstationModeEnum]
    RECOVERY: typing.ClassVar[WorkstationModeEnum]
    @classmethod
    def __new__(cls, value):
        ...
class LogSeverityEnum(enum.Enum):
    """
    Enum indicating the severity of a log message.
    """
    CRITICAL_ERROR: typing.ClassVar[LogSeverityEnum]
    DEBUG: typing.ClassVar[LogSeverityEnum]
    MESSAGE: typing.ClassVar[LogSeverityEnum]
    WARNING: typing.ClassVar[LogSeverityEnum]
    @classmethod
    def __new__(cls, value):
        ...
class EventTypeEnum(enum.Enum):
    """
    Enum which indicates the type of an event sent by the RQ5.
    """
    JOB_DONE: typing.ClassVar[EventTypeEnum]
    JOB_STATUS_UPDATE: typing.ClassVar[EventTypeEnum]
    LIVE_DATA_FINISHED: typing.ClassVar[EventTypeEnum]
    LIVE_DATA_HEADER: typing.ClassVar[EventTypeEnum]
    LIVE_DATA_HEADER_EIS: typing.ClassVar[EventTypeEnum]
    LIVE_DATA_ROWS: typing.ClassVar[EventTypeEnum]
    LIVE_DATA_ROW_EIS: typing.ClassVar[EventTypeEnum]
    LIVE_DATA_WAVES: typing.ClassVar[EventTypeEnum]
    MESSAGE_FROM_JOB: typing.ClassVar[EventTypeEnum]
    MESSAGE_FROM_SERVER: typing.ClassVar[EventTypeEnum]
    UNKNOWN: typing.ClassVar[EventTypeEnum]
    @classmethod
    def __new__(cls, value):
        ...
class DatasetType(enum.Enum):
    """
    Enum which indicates the type of the dataset.
    """
    AC: typing.ClassVar[DatasetType]
    DC: typing.ClassVar[DatasetType]
    @classmethod
    def __new__(cls, value):
        ...
class ErrorCodeEnum(enum.Enum):
    """
    Enum which indicates error codes for various operations.
    """
    ALREADY_CONNECTED: typing.ClassVar[ErrorCodeEnum]
    CALIBRATION_ERROR: typing.ClassVar[ErrorCodeEnum]
    CALIBRATION_GAIN_CALIB_ERROR: typing.ClassVar[ErrorCodeEnum]
    CALIBRATION_NO_SETTINGS: typing.ClassVar[ErrorCodeEnum]
    CALIBRATION_TYPE_UNKNOWN: typing.ClassVar[ErrorCodeEnum]
    CONNECTION_BROKEN: typing.ClassVar[ErrorCodeEnum]
    CONNECTION_DNS_ERROR: typing.ClassVar[ErrorCodeEnum]
    CONNECTION_FAILED: typing.ClassVar[ErrorCodeEnum]
    CONNECTION_HTTP_ERROR: typing.ClassVar[ErrorCodeEnum]
    CONNECTION_NOT_ESTABLISHED: typing.ClassVar[ErrorCodeEnum]
    CONNECTION_WAS_CLOSED: typing.ClassVar[ErrorCodeEnum]
    ENDPOINT_NOT_FOUND: typing.ClassVar[ErrorCodeEnum]
    FAILED_TO_ESTABLISH_WEBSOCKET_CONNECTION: typing.ClassVar[ErrorCodeEnum]
    FAILED_TO_READ_FROM_SOCKET: typing.ClassVar[ErrorCodeEnum]
    FAILED_TO_WRITE_TO_SOCKET: typing.ClassVar[ErrorCodeEnum]
    FILE_COULD_NOT_BE_CLOSED: typing.ClassVar[ErrorCodeEnum]
    FILE_COULD_NOT_BE_OPENED: typing.ClassVar[ErrorCodeEnum]
    FILE_COULD_NOT_BE_READ: typing.ClassVar[ErrorCodeEnum]
    FILE_COULD_NOT_BE_WRITTEN: typing.ClassVar[ErrorCodeEnum]
    FILE_IS_EMPTY: typing.ClassVar[ErrorCodeEnum]
    FILE_NOT_FOUND: typing.ClassVar[ErrorCodeEnum]
    FILE_VERSION_NOT_SUPPORTED: typing.ClassVar[ErrorCodeEnum]
    HARDWARE_CONFIGURATION_ISSUE: typing.ClassVar[ErrorCodeEnum]
    ID_NOT_FOUND: typing.ClassVar[ErrorCodeEnum]
    INVALID_PARAMETER: typing.ClassVar[ErrorCodeEnum]
    JSON_MALFORMED: typing.ClassVar[ErrorCodeEnum]
    JSON_OBJECT_EXPECTED: typing.ClassVar[ErrorCodeEnum]
    NONE: typing.ClassVar[ErrorCodeEnum]
    OPERATION_TIMED_OUT: typing.ClassVar[ErrorCodeEnum]
    OUT_OF_MEMORY: typing.ClassVar[ErrorCodeEnum]
    PARAMETER_COMBINATION_INVALID: typing.ClassVar[ErrorCodeEnum]
    PARAMETER_CONSTRAINT_VIOLATED: typing.ClassVar[ErrorCodeEnum]
    PARAMETER_FORMAT_INVALID: typing.ClassVar[ErrorCodeEnum]
    PARAMETER_FORMAT_INVALID_HINT: typing.ClassVar[ErrorCodeEnum]
    PARAMETER_IS_NOT_A_NUMBER: typing.ClassVar[ErrorCodeEnum]
    PARAMETER_MISSING: typing.ClassVar[ErrorCodeEnum]
    PARAMETER_RELATIVE_CONSTRAINT_VIOLATED: typing.ClassVar[ErrorCodeEnum]
    PARAMETER_STRING_LENGTH_INVALID: typing.ClassVar[ErrorCodeEnum]
    PARAMETER_SYMBOLIC_PATH_INVALID: typing.ClassVar[ErrorCodeEnum]
    PARAMETER_VALUES_TOO_CLOSE: typing.ClassVar[ErrorCodeEnum]
    PARAMETER_VALUE_TOO_HIGH: typing.ClassVar[ErrorCodeEnum]
    PARAMETER_VALUE_TOO_LOW: typing.ClassVar[ErrorCodeEnum]
    PARAMETER_VECTOR_SIZE_INVALID: typing.ClassVar[ErrorCodeEnum]
    POTENTIOSTAT_COUPLING_MISMATCH: typing.ClassVar[ErrorCodeEnum]
    POTENTIOSTAT_SWITCH_ON_ISSUE: typing.ClassVar[ErrorCodeEnum]
    POT_STATUS_MISMATCH: typing.ClassVar[ErrorCodeEnum]
    PREMATURELY_STOPPED: typing.ClassVar[ErrorCodeEnum]
    PROPERTY_OBJECT_MISSING: typing.ClassVar[ErrorCodeEnum]
    PROTOCOL_VERSION_MISMATCH: typing.ClassVar[ErrorCodeEnum]
    PSEUDO_GAL_NEEDS_GAL: typing.ClassVar[ErrorCodeEnum]
    QUEUE_BYPASS_NOT_ALLOWED: typing.ClassVar[ErrorCodeEnum]
    QUEUE_FULL: typing.ClassVar[ErrorCodeEnum]
    RAMP_ODR_CONSTRAINT_VIOLATED: typing.ClassVar[ErrorCodeEnum]
    RESOURCE_CONTENT_INVALID: typing.ClassVar[ErrorCodeEnum]
    RESOURCE_CREATION_FAILED: typing.ClassVar[ErrorCodeEnum]
    RESOURCE_NOT_WRITABLE: typing.ClassVar[ErrorCodeEnum]
    RESOURCE_TYPE_MISMATCH: typing.ClassVar[ErrorCodeEnum]
    RESULT_DATA_DISCARDED: typing.ClassVar[ErrorCodeEnum]
    SETTINGS_NOT_APPLIED: typing.ClassVar[ErrorCodeEnum]
    SETTING_OK_BUT_NOT_COMMITTED: typing.ClassVar[ErrorCodeEnum]
    STOPPED_MANUALLY: typing.ClassVar[ErrorCodeEnum]
    STOPPED_MANUALLY_BEFORE_RUN: typing.ClassVar[ErrorCodeEnum]
    STOP_CONDITION_MISCONFIGURED: typing.ClassVar[ErrorCodeEnum]
    STOP_CONDITION_TRIGGERED: typing.ClassVar[ErrorCodeEnum]
    TLS_CERTIFICATE_EXPIRED: typing.ClassVar[ErrorCodeEnum]
    TLS_CERTIFICATE_INVALID: typing.ClassVar[ErrorCodeEnum]
    TLS_HANDSHAKE_FAILED: typing.ClassVar[ErrorCodeEnum]
    TLS_KEY_CERTIFICATE_MISMATCH: typing.ClassVar[ErrorCodeEnum]
    TLS_NOT_SUPPORTED_BY_LIBRARY: typing.ClassVar[ErrorCodeEnum]
    TLS_PRIVATE_KEY_INVALID: typing.ClassVar[ErrorCodeEnum]
    TLS_SETUP_FAILED: typing.ClassVar[ErrorCodeEnum]
    TYPE_NAME_UNKNOWN: typing.ClassVar[ErrorCodeEnum]
    UNAUTHORIZED: typing.ClassVar[ErrorCodeEnum]
    UNEXPECTED_EXCEPTION: typing.ClassVar[ErrorCodeEnum]
    UNKNOWN_ERR: typing.ClassVar[ErrorCodeEnum]
    @classmethod
    def __new__(cls, value):
        ...
class ErrorParameter:
    """
    One parameter of an error message: a bool, a float, an int or a str.
    """
    __hash__: typing.ClassVar[None] = None
    def __eq__(self, other: ErrorParameter) -> bool:
        """
        True if both hold the same value of the same kind.
        """
    def __init__(self, value: typing.Any) -> None:
        """
        Create a parameter from a bool, int, float or str.
        """
    def __repr__(self) -> str:
        """
        ``ErrorParameter(value)``, strings in double quotes.
        """
    def __str__(self) -> str:
        """
        The value as text.
        """
    @property
    def value(self) -> typing.Any:
        """
        The parameter as a Python value.
        """
class ErrorObject:
    """
    Class which contains information about an error.
    
    An ``ErrorObject`` is falsy on success (code ``NONE``), so ``if link.connect(): ...`` enters
    the branch only on failure.
    """
    __hash__: typing.ClassVar[None] = None
    def __bool__(self) -> bool:
        """
        Convert ErrorObject to boolean.
        """
    def __copy__(self) -> ErrorObject:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: typing.Any) -> ErrorObject:
        """
        An independent copy.
        """
    @typing.overload
    def __eq__(self, other: ErrorObject) -> bool:
        """
        Compare code, format string and parameters.
        """
    @typing.overload
    def __eq__(self, other: bool) -> bool:
        """
        Allows patterns like ``error == False`` to check for success.
        """
    @typing.overload
    def __init__(self) -> None:
        """
        The success value: code ``NONE``, message "no error occoured".
        """
    @typing.overload
    def __init__(self, code: ErrorCodeEnum, message_format: str, message_parameters: collections.abc.Sequence[typing.Any] = []) -> None:
        """
        Create an error from a code, a format string with ``{0}``-style placeholders and its parameters.
        """
    @typing.overload
    def __ne__(self, other: ErrorObject) -> bool:
        """
        Negation of ``__eq__``.
        """
    @typing.overload
    def __ne__(self, other: bool) -> bool:
        """
        Negation of ``__eq__``.
        """
    def __repr__(self) -> str:
        """
        The formatted message.
        """
    def __str__(self) -> str:
        """
        The formatted message.
        """
    def get_error_code_enum(self) -> ErrorCodeEnum:
        """
        :returns: the :class:`velmar_link.ErrorCodeEnum` of the error.
        """
    def get_message_format_string(self) -> str:
        """
        :returns: the message format string with its placeholders.
        """
    def get_message_formatted(self) -> str:
        """
        :returns: the message with its placeholders filled.
        """
    def get_message_parameters(self) -> list[ErrorParameter]:
        """
        :returns: the list of :class:`velmar_link.ErrorParameter` that fill the placeholders.
        """
    def is_none(self) -> bool:
        """
        True if the code is ``NONE`` (success).
        """
class VelmarLinkException(Exception):
    """
    Base class for all VelmarLink exceptions.
    """
class TrackNames:
    """
    Constants for track names used in datasets.
    """
    AMPLITUDE: typing.ClassVar[str] = 'amplitude'
    BANDWITH: typing.ClassVar[str] = 'bandwith'
    CURRENT: typing.ClassVar[str] = 'current'
    DC: typing.ClassVar[str] = 'dc'
    DRIFT: typing.ClassVar[str] = 'drift'
    FILTER: typing.ClassVar[str] = 'filter'
    FREQUENCY: typing.ClassVar[str] = 'frequency'
    GAIN: typing.ClassVar[str] = 'gain'
    IMPEDANCE_ABSOLUTE: typing.ClassVar[str] = '|impedance|'
    IMPEDANCE_DRIFT: typing.ClassVar[str] = 'impedance drift'
    IMPEDANCE_ERROR: typing.ClassVar[str] = 'impedance error'
    PERIODS: typing.ClassVar[str] = 'periods'
    PHASE: typing.ClassVar[str] = 'phase'
    PHASE_DRIFT: typing.ClassVar[str] = 'phase drift'
    PHASE_ERROR: typing.ClassVar[str] = 'phase error'
    SHUNT: typing.ClassVar[str] = 'shunt'
    THD: typing.ClassVar[str] = 'thd'
    TIME: typing.ClassVar[str] = 'time'
    VOLTAGE: typing.ClassVar[str] = 'voltage'
    WAVE_ID: typing.ClassVar[str] = 'wave_id'
    WAVE_SIZE: typing.ClassVar[str] = 'wave_size'
    __slots__: typing.ClassVar[tuple] = tuple()
class UnitNames:
    """
    Constants for unit names used in datasets.
    """
    BANDWITH: typing.ClassVar[str] = ''
    CURRENT: typing.ClassVar[str] = 'A'
    DRIFT: typing.ClassVar[str] = '1/period'
    FILTER: typing.ClassVar[str] = ''
    FILTER_HZ: typing.ClassVar[str] = 'Hz'
    FREQUENCY: typing.ClassVar[str] = 'Hz'
    GAIN: typing.ClassVar[str] = ''
    IMPEDANCE_ABSOLUTE: typing.ClassVar[str] = 'Ω'
    IMPEDANCE_DRIFT: typing.ClassVar[str] = ''
    IMPEDANCE_ERROR: typing.ClassVar[str] = ''
    PERIODS: typing.ClassVar[str] = ''
    PHASE_DRIFT: typing.ClassVar[str] = ''
    PHASE_ERROR: typing.ClassVar[str] = ''
    PHASE_RAD: typing.ClassVar[str] = 'rad'
    SHUNT: typing.ClassVar[str] = ''
    THD: typing.ClassVar[str] = '%'
    TIME: typing.ClassVar[str] = 's'
    VOLTAGE: typing.ClassVar[str] = 'V'
    WAVE_ID: typing.ClassVar[str] = ''
    WAVE_SIZE: typing.ClassVar[str] = ''
    __slots__: typing.ClassVar[tuple] = tuple()
class VelmarLinkConnectionFlags:
    """
    Flags for the VelmarLink connection.
    
    Combine them with ``|`` and pass them as the ``flags`` argument of the connection classes or to ``set_flag``, ``clear_flag`` and ``test_flag``.
    
    - ``NONE``: plain TCP, full checks
    - ``USE_SSL``: connect with TLS
    - ``SKIP_SSL_CERT_VALIDATION``: Skip any TLS certificate check
    - ``SKIP_SSL_HOSTNAME_MATCHING``: Skip only TLS certificate hostname check
    - ``SSL_DO_NOT_USE_SYSTEM_CAS``: Do not trust CAs supplyed by the OS
    - ``IGNORE_PROTOCOL_MISMATCH``: accept a workstation that speaks another protocol version
    - ``SSL_VERIFY_CUSTOM_HOSTNAME``: validate the server certificate against ``TlsConfiguration.certificate_hostname`` instead of the host used to connect; with the flag set and that name empty the connection host is the fallback; ``SKIP_SSL_HOSTNAME_MATCHING`` takes precedence, and with both set the name only serves as the SNI name.
    """
    IGNORE_PROTOCOL_MISMATCH: typing.ClassVar[int] = 16
    NONE: typing.ClassVar[int] = 0
    SKIP_SSL_CERT_VALIDATION: typing.ClassVar[int] = 2
    SKIP_SSL_HOSTNAME_MATCHING: typing.ClassVar[int] = 4
    SSL_DO_NOT_USE_SYSTEM_CAS: typing.ClassVar[int] = 8
    SSL_VERIFY_CUSTOM_HOSTNAME: typing.ClassVar[int] = 32
    USE_SSL: typing.ClassVar[int] = 1
    __slots__: typing.ClassVar[tuple] = tuple()
class Setting:
    """
    One typed device setting with the outcome of its last update.
    
    A setting holds a ``bool``, an ``int``, a ``float`` or a ``str``; its type is
    :class:`velmar_link.SettingType`. Assigning a value of another kind changes the type.
    """
    def __copy__(self) -> Setting:
        """
        Return an independent copy.
        """
    def __deepcopy__(self, memo: typing.Any) -> Setting:
        """
        Return an independent copy; ``memo`` is unused.
        
        :param memo: the memo dictionary of :func:`copy.deepcopy`.
        """
    @typing.overload
    def __init__(self) -> None:
        """
        An uninitialized setting (type ``UNINITIALIZED``).
        """
    @typing.overload
    def __init__(self, value: bool) -> None:
        """
        A ``BOOL`` setting.
        
        :param value: the value.
        """
    @typing.overload
    def __init__(self, value: typing.SupportsInt | typing.SupportsIndex) -> None:
        """
        An ``INT`` setting (32-bit signed).
        
        :param value: the value.
        """
    @typing.overload
    def __init__(self, value: typing.SupportsFloat | typing.SupportsIndex) -> None:
        """
        A ``DOUBLE`` setting.
        
        :param value: the value.
        """
    @typing.overload
    def __init__(self, value: str) -> None:
        """
        A ``STRING`` setting.
        
        :param value: the value.
        """
    def __str__(self) -> str:
        """
        Same text as :meth:`as_string`.
        """
    def as_string(self) -> str:
        """
        The value as text.
        
        ``BOOL`` gives "true" or "false", ``INT`` the decimal number, ``DOUBLE`` six significant
        digits in the shorter of fixed and exponent form, ``STRING`` the string itself.
        """
    def assign_bool(self, value: bool) -> Setting:
        """
        Make this a ``BOOL`` setting holding ``value``.
        
        :param value: the new value.
        :returns: the setting itself.
        """
    def assign_double(self, value: typing.SupportsFloat | typing.SupportsIndex) -> Setting:
        """
        Make this a ``DOUBLE`` setting holding ``value``.
        
        :param value: the new value.
        :returns: the setting itself.
        """
    def assign_int(self, value: typing.SupportsInt | typing.SupportsIndex) -> Setting:
        """
        Make this an ``INT`` setting holding ``value``.
        
        :param value: the new value.
        :returns: the setting itself.
        """
    def assign_string(self, value: str) -> Setting:
        """
        Make this a ``STRING`` setting holding ``value``.
        
        :param value: the new value.
        :returns: the setting itself.
        """
    def get_bool_value(self) -> bool:
        """
        The value of a ``BOOL`` setting.
        
        :raises RuntimeError: if the setting holds another kind.
        """
    def get_double_value(self) -> float:
        """
        The value of a ``DOUBLE`` setting.
        
        :raises RuntimeError: if the setting holds another kind.
        """
    def get_int_value(self) -> int:
        """
        The value of an ``INT`` setting.
        
        :raises RuntimeError: if the setting holds another kind.
        """
    def get_string_value(self) -> str:
        """
        The value of a ``STRING`` setting.
        
        :raises RuntimeError: if the setting holds another kind.
        """
    def get_type(self) -> SettingType:
        """
        :returns: the :class:`velmar_link.SettingType` of the value.
        """
    def get_update_failure_reason(self) -> ErrorObject:
        """
        :returns: the :class:`velmar_link.ErrorObject` of the last failed update, or the success value.
        """
    def successfully_updated(self) -> bool:
        """
        True if the last update request applied this setting.
        """
class SettingsSet:
    """
    The keyed collection of device settings.
    
    Read with :meth:`velmar_link.VelmarLink.get_settings`, changed by subscript, written with
    :meth:`velmar_link.VelmarLink.update_settings`, which stores each entry's outcome in the set.
    Values assigned by subscript are converted automatically: ``bool`` to ``BOOL``, ``int`` to
    ``INT``, ``float`` to ``DOUBLE``, ``str`` to ``STRING``, anything else to the ``STRING`` of its
    ``str()``.
    """
    def __contains__(self, key: str) -> bool:
        """
        True if ``key`` is in the set.
        
        :param key: the setting's name.
        """
    def __copy__(self) -> SettingsSet:
        """
        Return an independent copy.
        """
    def __deepcopy__(self, memo: typing.Any) -> SettingsSet:
        """
        Return an independent copy; ``memo`` is unused.
        
        :param memo: the memo dictionary of :func:`copy.deepcopy`.
        """
    def __getitem__(self, key: str) -> typing.Any:
        """
        The setting stored under ``key`` (changes to it change the set).
        
        A missing key yields a new ``UNINITIALIZED`` setting; the set does not grow.
        
        :param key: the setting's name.
        """
    @typing.overload
    def __init__(self) -> None:
        """
        An empty set.
        """
    @typing.overload
    def __init__(self, entries: collections.abc.Sequence[tuple[str, Setting]]) -> None:
        """
        A set from a list of (key, :class:`velmar_link.Setting`) pairs.
        
        :param entries: the pairs; a repeated key keeps its last value.
        """
    @typing.overload
    def __init__(self, entries: collections.abc.Iterable) -> None:
        """
        A set from a list of (key, value) pairs with automatic conversion.
        
        :param entries: the pairs; a repeated key keeps its last value.
        """
    def __iter__(self) -> collections.abc.Iterator:
        """
        Iterate over (key, :class:`velmar_link.Setting`) tuples of a snapshot of the set.
        """
    def __len__(self) -> int:
        """
        The number of entries.
        """
    def __setitem__(self, key: str, value: typing.Any) -> None:
        """
        Store a :class:`velmar_link.Setting`, or a value with automatic conversion, under ``key``.
        
        :param key: the setting's name.
        :param value: a Setting, bool, int, float, str or any object (stored as its ``str()``).
        """
    def all_successfully_updated(self) -> bool:
        """
        True if every entry was applied by the last update; an empty set yields True.
        """
    def keys(self) -> list[str]:
        """
        :returns: the list of key names.
        """
class JobOptions:
    """
    Options which apply to the execution of a job, not to its measurement parameters.
    
    Only options which are set are transmitted to the RQ5, an absent option means False.
    """
    __hash__: typing.ClassVar[None] = None
    def __eq__(self, other: JobOptions) -> bool:
        """
        Compare both options.
        """
    def __init__(self, bypass_queue: bool = False, discard_result_data: bool = False) -> None:
        """
        Create job options.
        
        :param bypass_queue: the job is not appended to the job queue but executed right away
        :param discard_result_data: the RQ5 does not store the result data of the job
        """
    def __repr__(self) -> str:
        ...
    @property
    def bypass_queue(self) -> bool:
        """
        If True the job is not appended to the job queue but executed right away.
        """
    @bypass_queue.setter
    def bypass_queue(self, arg0: bool) -> None:
        ...
    @property
    def discard_result_data(self) -> bool:
        """
        If True the RQ5 does not store the result data of the job.
        """
    @discard_result_data.setter
    def discard_result_data(self, arg0: bool) -> None:
        ...
class JobInfo:
    """
    Class which contains information about the job.
    """
    def __repr__(self) -> str:
        ...
    def get_creation_date(self) -> str:
        """
        When the job was created, as the device wrote it.
        """
    def get_end_date(self) -> str:
        """
        When the job ended, as the device wrote it.
        """
    def get_error(self) -> ErrorObject:
        """
        The error of the job as :class:`velmar_link.ErrorObject` (falsy if there is none).
        """
    def get_error_message(self) -> str:
        """
        The formatted error message, or an empty string if there is no error.
        """
    def get_job_id(self) -> str:
        """
        The device's identifier of the job.
        """
    def get_job_options(self) -> JobOptions:
        """
        The :class:`velmar_link.JobOptions` of the job. Options which were not transmitted read as False.
        """
    def get_start_date(self) -> str:
        """
        When the job was started, as the device wrote it.
        """
    def get_status(self) -> JobStatusEnum:
        """
        The status as :class:`velmar_link.JobStatusEnum`.
        """
    def get_status_detail(self) -> JobStatusDetailEnum:
        """
        The status detail as :class:`velmar_link.JobStatusDetailEnum`.
        """
    def get_status_detail_string(self) -> str:
        """
        The status detail as text, for example "RUN_TO_COMPLETION".
        """
    def get_status_string(self) -> str:
        """
        The status as text, for example "FINISHED".
        """
    def get_type(self) -> str:
        """
        The job name, for example "cv".
        """
    def get_user_metadata(self) -> dict[str, str]:
        """
        The user metadata that travelled with the job, as a dict.
        """
class SwitchOnInfo:
    """
    The values reported by the RQ5 after switching a potentiostat on.
    """
    @property
    def applied_bias(self) -> float:
        """
        bias that was actually applied
        """
    @property
    def current(self) -> float:
        """
        output current
        """
    @property
    def voltage(self) -> float:
        """
        output voltage
        """
class AbstractMeasurementJob:
    """
    Abstract base class from which all jobs are derived.
    """
    def get_job_options(self) -> JobOptions:
        """
        The :class:`velmar_link.JobOptions` of the job.
        """
    def get_last_job_error_message(self) -> str:
        """
        The formatted error of the last run, or an empty string if there is none.
        """
    def get_last_job_info(self) -> JobInfo:
        """
        The :class:`velmar_link.JobInfo` of the last run.
        """
    def get_last_job_status(self) -> JobStatusEnum:
        """
        The :class:`velmar_link.JobStatusEnum` of the last run.
        """
    def get_meta_data(self) -> dict[str, str]:
        """
        The user metadata of the job as a dict.
        """
    def get_name(self) -> str:
        """
        The job name sent as "type", for example "cv".
        """
    def set_job_options(self, job_options: JobOptions) -> None:
        """
        Set the options of the job.
        
        Must be called before the job is handed to :meth:`velmar_link.VelmarLink.do_job` or
        :meth:`velmar_link.VelmarLink.check_job_parameters`, because the options are read when the job starts.
        
        :param job_options: the :class:`velmar_link.JobOptions` to use
        """
    def set_meta_data(self, meta_data: collections.abc.Mapping[str, str]) -> None:
        """
        Replace the user metadata of the job.
        
        :param meta_data: dict of str to str
        """
    def was_successful(self) -> bool:
        """
        True if the last run of the job has finished successfully.
        """
class CurrentRange:
    """
    A current range of a potentiostat.
    """
    @property
    def index(self) -> int:
        """
        index of the range
        """
    @property
    def max_current(self) -> float:
        """
        maximum current
        """
    @property
    def resistance(self) -> float:
        """
        nominal shunt resistance
        """
class VoltageRange:
    """
    A voltage range of a potentiostat.
    """
    @property
    def index(self) -> int:
        """
        index of the range
        """
    @property
    def max_voltage(self) -> float:
        """
        maximum voltage
        """
class ComplianceRange:
    """
    A compliance range of a potentiostat.
    """
    @property
    def index(self) -> int:
        """
        index of the range
        """
    @property
    def max_voltage(self) -> float:
        """
        maximum compliance voltage
        """
class GainRange:
    """
    A gain of a signal path.
    """
    @property
    def enabled(self) -> bool:
        """
        whether the gain is enabled
        """
    @property
    def index(self) -> int:
        """
        index of the gain
        """
    @property
    def nominal_gain(self) -> float:
        """
        nominal gain factor
        """
class FilterRange:
    """
    A filter of a signal path.
    """
    @property
    def index(self) -> int:
        """
        index of the filter
        """
    @property
    def max_frequency(self) -> float:
        """
        maximum impedance frequnecy
        """
class BandwidthRange:
    """
    A bandwidth setting.
    """
    @property
    def index(self) -> int:
        """
        index of the bandwidth
        """
class PathInfo:
    """
    A signal path of the RQ5.
    """
    @property
    def bandwidth_ranges(self) -> list[BandwidthRange]:
        """
        bandwidths of the path
        """
    @property
    def filter_ranges(self) -> list[FilterRange]:
        """
        filters of the path
        """
    @property
    def gain_ranges(self) -> list[GainRange]:
        """
        gains of the path
        """
    @property
    def relevance(self) -> float:
        """
        relevance from 0 (worst) to 1.0 (best)
        """
    @property
    def sampling(self) -> str:
        """
        sampling of the path: simultan, acq or high_precision
        """
    @property
    def source(self) -> str:
        """
        source of the path: shunt, voltage or input
        """
    @property
    def url(self) -> str:
        """
        path in url notation
        """
    @property
    def urn(self) -> str:
        """
        path in urn notation
        """
class PotentiostatInfo:
    """
    A potentiostat connected to the RQ5.
    """
    @property
    def bandwidth_ranges(self) -> list[BandwidthRange]:
        """
        bandwidth ranges of the potentiostat
        """
    @property
    def compliance_ranges(self) -> list[ComplianceRange]:
        """
        compliance ranges of the potentiostat
        """
    @property
    def current_ranges(self) -> list[CurrentRange]:
        """
        current ranges of the potentiostat
        """
    @property
    def dac_resolution(self) -> int:
        """
        resolution of the dac that is used for output values in bits
        """
    @property
    def has_calibration_data(self) -> bool:
        """
        flag if there is calibration data, if false no measurements are possible
        """
    @property
    def identifier(self) -> str:
        """
        unique identification of the potentiostat
        """
    @property
    def serialnumber(self) -> str:
        """
        serial number of the potentiostat
        """
    @property
    def software(self) -> str:
        """
        software version of the potentiostat
        """
    @property
    def voltage_ranges(self) -> list[VoltageRange]:
        """
        voltage ranges of the potentiostat
        """
class CardInfo:
    """
    An add-on card of the RQ5.
    """
    @property
    def firmware(self) -> str:
        """
        firmware version of the card
        """
    @property
    def hardware(self) -> str:
        """
        hardware revision of the card
        """
    @property
    def name(self) -> str:
        """
        name of the card
        """
    @property
    def serialnumber(self) -> str:
        """
        serial number of the card
        """
    @property
    def symbol(self) -> str:
        """
        symbol of the card
        """
class HardwareInfo:
    """
    The device tree of the RQ5: cards, potentiostats and paths.
    """
    def constains_url(self, url: str) -> bool:
        """
        True if the object holds a path with that url. The device tree must first have been retrieved from the device.
        
        :param url: path in url notation
        """
    def constains_urn(self, urn: str) -> bool:
        """
        True if the object holds a path with that urn. The device tree must first have been retrieved from the device.
        
        :param urn: path in urn notation
        """
    def convert_url_to_urn(self, url: str) -> str:
        """
        The urn of the path with that url, or an empty string if unknown.
        
        :param url: path in url notation
        """
    def convert_urn_to_url(self, urn: str) -> str:
        """
        The url of the path with that urn, or an empty string if unknown.
        
        :param urn: path in urn notation
        """
    @property
    def cards(self) -> list[CardInfo]:
        """
        list of :class:`velmar_link.CardInfo`
        """
    @property
    def paths(self) -> list[PathInfo]:
        """
        list of :class:`velmar_link.PathInfo`
        """
    @property
    def potentiostats(self) -> list[PotentiostatInfo]:
        """
        list of :class:`velmar_link.PotentiostatInfo`
        """
    @property
    def software(self) -> str:
        """
        software version of the workstation
        """
    @property
    def workstation(self) -> str:
        """
        identification of the workstation
        """
class UserPolynomial:
    """
    A polynomial, coefficient of degree 0 first.
    """
    __hash__: typing.ClassVar[None] = None
    def __copy__(self) -> UserPolynomial:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> UserPolynomial:
        """
        An independent copy.
        """
    def __eq__(self, other: UserPolynomial) -> bool:
        """
        Compare.
        """
    @typing.overload
    def __init__(self) -> None:
        """
        The identity [0.0, 1.0].
        """
    @typing.overload
    def __init__(self, coefficients: typing.Any) -> None:
        """
        Create from a sequence of floats or another UserPolynomial.
        
        :param coefficients: sequence or :class:`velmar_link.UserPolynomial`
        """
    @property
    def coefficients(self) -> list[float]:
        """
        Array containing the coefficients of the polynomial.
        """
    @coefficients.setter
    def coefficients(self, arg0: collections.abc.Sequence[typing.SupportsFloat | typing.SupportsIndex]) -> None:
        ...
class Channel:
    """
    A sampled signal path; the polynomial computes its DC value and is included in the impedance calculation.
    """
    __hash__: typing.ClassVar[None] = None
    def __copy__(self) -> Channel:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> Channel:
        """
        An independent copy.
        """
    def __eq__(self, other: Channel) -> bool:
        """
        Compare.
        """
    def __init__(self, uri: str = '', dimension: str = '', unit: str = '', polynomial: UserPolynomial = ...) -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def dimension(self) -> str:
        """
        The "dimension" value (the key of the same name on the wire).
        """
    @dimension.setter
    def dimension(self, arg0: str) -> None:
        ...
    @property
    def polynomial(self) -> UserPolynomial:
        """
        The "polynomial" value (the key of the same name on the wire).
        """
    @polynomial.setter
    def polynomial(self, arg0: UserPolynomial) -> None:
        ...
    @property
    def unit(self) -> str:
        """
        The "unit" value (the key of the same name on the wire).
        """
    @unit.setter
    def unit(self, arg0: str) -> None:
        ...
    @property
    def uri(self) -> str:
        """
        The "uri" value (the key of the same name on the wire).
        """
    @uri.setter
    def uri(self, arg0: str) -> None:
        ...
class ImpedanceConfiguration:
    """
    For each impedance configuration, the numerator is simply returned divided by the denominator as a complex number. Left empty, the device names the impedance "numerator/denominator".
    """
    def __copy__(self) -> ImpedanceConfiguration:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> ImpedanceConfiguration:
        """
        An independent copy.
        """
    def __init__(self, numerator: str = '', denominator: str = '', impedance_name: str = '') -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def denominator(self) -> str:
        """
        The "denominator" value (the key of the same name on the wire).
        """
    @denominator.setter
    def denominator(self, arg0: str) -> None:
        ...
    @property
    def impedance_name(self) -> str:
        """
        The "impedance_name" value (the key of the same name on the wire).
        """
    @impedance_name.setter
    def impedance_name(self, arg0: str) -> None:
        ...
    @property
    def numerator(self) -> str:
        """
        The "numerator" value (the key of the same name on the wire).
        """
    @numerator.setter
    def numerator(self, arg0: str) -> None:
        ...
class PotentiostatConfiguration:
    """
    The output potentiostat: potentiostatic_polynomial calculates the potentiostatic output for reference electrode and FRA, galvanostatic_polynomial the galvanostatic output for FRA.
    """
    def __copy__(self) -> PotentiostatConfiguration:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> PotentiostatConfiguration:
        """
        An independent copy.
        """
    def __init__(self, uri: str = '', potentiostatic_polynomial: UserPolynomial = ..., galvanostatic_polynomial: UserPolynomial = ...) -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def galvanostatic_polynomial(self) -> UserPolynomial:
        """
        The "galvanostatic_polynomial" value (the key of the same name on the wire).
        """
    @galvanostatic_polynomial.setter
    def galvanostatic_polynomial(self, arg0: UserPolynomial) -> None:
        ...
    @property
    def potentiostatic_polynomial(self) -> UserPolynomial:
        """
        The "potentiostatic_polynomial" value (the key of the same name on the wire).
        """
    @potentiostatic_polynomial.setter
    def potentiostatic_polynomial(self, arg0: UserPolynomial) -> None:
        ...
    @property
    def uri(self) -> str:
        """
        The "uri" value (the key of the same name on the wire).
        """
    @uri.setter
    def uri(self, arg0: str) -> None:
        ...
class PotConnection:
    """
    An external potentiostat by its QLC card and connector.
    """
    def __copy__(self) -> PotConnection:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> PotConnection:
        """
        An independent copy.
        """
    def __init__(self, card_index: typing.SupportsInt | typing.SupportsIndex = 1, connector_index: typing.SupportsInt | typing.SupportsIndex = 1) -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def card_index(self) -> int:
        """
        The "card_index" value (the key of the same name on the wire).
        """
    @card_index.setter
    def card_index(self, arg0: typing.SupportsInt | typing.SupportsIndex) -> None:
        ...
    @property
    def connector_index(self) -> int:
        """
        The "connector_index" value (the key of the same name on the wire).
        """
    @connector_index.setter
    def connector_index(self, arg0: typing.SupportsInt | typing.SupportsIndex) -> None:
        ...
class Mux4Connection:
    """
    An input channel of a MUX4 card.
    """
    __hash__: typing.ClassVar[None] = None
    def __copy__(self) -> Mux4Connection:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> Mux4Connection:
        """
        An independent copy.
        """
    def __eq__(self, other: Mux4Connection) -> bool:
        """
        Compare.
        """
    def __init__(self, card_index: typing.SupportsInt | typing.SupportsIndex = 1, connector_index: typing.SupportsInt | typing.SupportsIndex = 1, polynomial: UserPolynomial = ..., dimension: str = '', unit: str = '') -> None:
        """
        Create the record; every field is a keyword argument.
        """
    def __lt__(self, other: Mux4Connection) -> bool:
        """
        Order.
        """
    def getPath(self) -> str:
        """
        The signal path "MUX4:{card}:CH{connector}~MUX4:{card}:ADC{connector}".
        """
    def get_channel_name(self) -> str:
        """
        The channel name "MUX4-{card}-CH{connector}".
        """
    @property
    def card_index(self) -> int:
        """
        The "card_index" value (the key of the same name on the wire).
        """
    @card_index.setter
    def card_index(self, arg0: typing.SupportsInt | typing.SupportsIndex) -> None:
        ...
    @property
    def connector_index(self) -> int:
        """
        The "connector_index" value (the key of the same name on the wire).
        """
    @connector_index.setter
    def connector_index(self, arg0: typing.SupportsInt | typing.SupportsIndex) -> None:
        ...
    @property
    def dimension(self) -> str:
        """
        The "dimension" value (the key of the same name on the wire).
        """
    @dimension.setter
    def dimension(self, arg0: str) -> None:
        ...
    @property
    def polynomial(self) -> UserPolynomial:
        """
        The "polynomial" value (the key of the same name on the wire).
        """
    @polynomial.setter
    def polynomial(self, arg0: UserPolynomial) -> None:
        ...
    @property
    def unit(self) -> str:
        """
        The "unit" value (the key of the same name on the wire).
        """
    @unit.setter
    def unit(self, arg0: str) -> None:
        ...
class Mux4ImpedanceConfiguration:
    """
    An impedance between two MUX4 channels; left empty, the name is derived from the card and connector indices.
    """
    def __copy__(self) -> Mux4ImpedanceConfiguration:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> Mux4ImpedanceConfiguration:
        """
        An independent copy.
        """
    def __init__(self, numerator: Mux4Connection = ..., denominator: Mux4Connection = ..., impedance_name: str = '') -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def denominator(self) -> Mux4Connection:
        """
        The "denominator" value (the key of the same name on the wire).
        """
    @denominator.setter
    def denominator(self, arg0: Mux4Connection) -> None:
        ...
    @property
    def impedance_name(self) -> str:
        """
        The "impedance_name" value (the key of the same name on the wire).
        """
    @impedance_name.setter
    def impedance_name(self, arg0: str) -> None:
        ...
    @property
    def numerator(self) -> Mux4Connection:
        """
        The "numerator" value (the key of the same name on the wire).
        """
    @numerator.setter
    def numerator(self, arg0: Mux4Connection) -> None:
        ...
class UserHardwareSettings:
    """
    The editable sampling configuration, passed to :class:`velmar_link.control.SetHardwareSettingsJob`.
    """
    def __init__(self, channels: collections.abc.Sequence[Channel] = [], impedance_configurations: collections.abc.Sequence[ImpedanceConfiguration] = [], output_potentiostats: collections.abc.Sequence[PotentiostatConfiguration] = []) -> None:
        """
        Create the configuration.
        
        :param channels: synchronous and asynchronous channels together
        :param impedance_configurations: the impedances to compute
        :param output_potentiostats: the outputs
        """
    def add_channel(self, channel: Channel) -> None:
        """
        Append one channel to the channels.
        
        Appending to the ``channels`` property of this object does not work, because reading the
        property returns a copy of the list; use this method instead.
        
        :param channel: the :class:`velmar_link.Channel` to add
        """
    def add_sync_current_channel(self, connections: collections.abc.Sequence[Mux4Connection]) -> None:
        """
        Add MUX4 current channels; an impedance is calculated with the main voltage channel.
        
        :param connections: list of :class:`velmar_link.Mux4Connection`
        """
    def add_sync_voltage_channel(self, connections: collections.abc.Sequence[Mux4Connection]) -> None:
        """
        Add MUX4 voltage channels; an impedance is calculated with the main current channel.
        
        :param connections: list of :class:`velmar_link.Mux4Connection`
        """
    def remove_duplicates_from_channels(self) -> None:
        """
        Remove repeated channels, keeping the first occurrence and the order.
        """
    @property
    def channels(self) -> list[Channel]:
        """
        Channels (a copy is returned).
        """
    @channels.setter
    def channels(self, arg0: collections.abc.Sequence[Channel]) -> None:
        ...
    @property
    def impedance_configurations(self) -> list[ImpedanceConfiguration]:
        """
        Impedance configurations (a copy is returned).
        """
    @impedance_configurations.setter
    def impedance_configurations(self, arg0: collections.abc.Sequence[ImpedanceConfiguration]) -> None:
        ...
    @property
    def output_potentiostats(self) -> list[PotentiostatConfiguration]:
        """
        Output potentiostats (a copy is returned).
        """
    @output_potentiostats.setter
    def output_potentiostats(self, arg0: collections.abc.Sequence[PotentiostatConfiguration]) -> None:
        ...
class HardwareSettings:
    """
    Class which contains the settings adopted by the RQ5.
    """
    @property
    def async_channels(self) -> list[Channel]:
        """
        channels that can only be measured sequentially, which slows down the internal oversampling
        """
    @property
    def impedance_configurations(self) -> list[ImpedanceConfiguration]:
        """
        impedance configurations
        """
    @property
    def output_potentiostats(self) -> list[PotentiostatConfiguration]:
        """
        output potentiostats
        """
    @property
    def sync_channels(self) -> list[Channel]:
        """
        channels sampled synchronously
        """
class HardwareSettingsHelper:
    """
    Builds the usual sampling configurations as :class:`velmar_link.UserHardwareSettings`.
    """
    @staticmethod
    def get_config_for_main_potentiostat() -> UserHardwareSettings:
        """
        Voltage and current channel of the main potentiostat, their impedance and the main potentiostat as output.
        """
    @staticmethod
    def get_config_for_main_with_sync_channel_impedance(connections: collections.abc.Sequence[Mux4ImpedanceConfiguration]) -> UserHardwareSettings:
        """
        Main potentiostat plus impedances between MUX4 channel pairs.
        """
    @staticmethod
    def get_config_for_main_with_sync_current_channel(connections: collections.abc.Sequence[Mux4Connection]) -> UserHardwareSettings:
        """
        Main potentiostat plus MUX4 current channels.
        """
    @staticmethod
    def get_config_for_main_with_sync_voltage_channel(connections: collections.abc.Sequence[Mux4Connection]) -> UserHardwareSettings:
        """
        Main potentiostat plus MUX4 voltage channels.
        """
    @staticmethod
    @typing.overload
    def get_config_for_potentiostat(pot_connection: PotConnection) -> UserHardwareSettings:
        """
        The same for an external potentiostat given by QLC card and connector.
        """
    @staticmethod
    @typing.overload
    def get_config_for_potentiostat(pot_serial_number: str) -> UserHardwareSettings:
        """
        The same for a potentiostat given by serial number.
        """
    @staticmethod
    @typing.overload
    def get_config_for_potentiostat_with_sync_channel_impedance(pot_connection: PotConnection, connections: collections.abc.Sequence[Mux4ImpedanceConfiguration]) -> UserHardwareSettings:
        """
        External potentiostat plus impedances between MUX4 channel pairs.
        """
    @staticmethod
    @typing.overload
    def get_config_for_potentiostat_with_sync_channel_impedance(pot_serial_number: str, connections: collections.abc.Sequence[Mux4ImpedanceConfiguration]) -> UserHardwareSettings:
        """
        Potentiostat by serial number plus impedances between MUX4 channel pairs.
        """
    @staticmethod
    @typing.overload
    def get_config_for_potentiostat_with_sync_current_channel(pot_connection: PotConnection, connections: collections.abc.Sequence[Mux4Connection]) -> UserHardwareSettings:
        """
        External potentiostat plus MUX4 current channels.
        """
    @staticmethod
    @typing.overload
    def get_config_for_potentiostat_with_sync_current_channel(pot_serial_number: str, connections: collections.abc.Sequence[Mux4Connection]) -> UserHardwareSettings:
        """
        Potentiostat by serial number plus MUX4 current channels.
        """
    @staticmethod
    @typing.overload
    def get_config_for_potentiostat_with_sync_voltage_channel(pot_connection: PotConnection, connections: collections.abc.Sequence[Mux4Connection]) -> UserHardwareSettings:
        """
        External potentiostat plus MUX4 voltage channels.
        """
    @staticmethod
    @typing.overload
    def get_config_for_potentiostat_with_sync_voltage_channel(pot_serial_number: str, connections: collections.abc.Sequence[Mux4Connection]) -> UserHardwareSettings:
        """
        Potentiostat by serial number plus MUX4 voltage channels.
        """
    @staticmethod
    def get_potentiostat_url(pot_connection: PotConnection) -> str:
        """
        "QLC:{card}:EXT{connector}:POT".
        """
    @staticmethod
    def get_potentiostat_urn(pot_serial_number: str) -> str:
        """
        The text unchanged if it contains "MAIN:1:POT", otherwise text + ":POT".
        """
class ColumnHeader:
    """
    Dimension, unit and urn of one dataset column.
    """
    def __eq__(self, other: ColumnHeader) -> bool:
        """
        True when dimension, unit and urn are all equal.
        """
    def __hash__(self) -> int:
        """
        Hash of the three strings.
        """
    def __init__(self, dimension: str, unit: str, urn: str) -> None:
        """
        Creates a column header.
        """
    def __lt__(self, other: ColumnHeader) -> bool:
        """
        Orders by urn, then dimension, then unit.
        """
    def __repr__(self) -> str:
        """
        The constructor call that rebuilds the header.
        """
    def get_dimension(self) -> str:
        """
        The quantity of the column, such as "voltage".
        """
    def get_unit(self) -> str:
        """
        The unit of the column, such as "V".
        """
    def get_urn(self) -> str:
        """
        The urn of the column's source on the workstation.
        """
class LiveDataHeader:
    """
    The header of a DC job's live data.
    """
    __hash__: typing.ClassVar[None] = None
    def __eq__(self, other: LiveDataHeader) -> bool:
        """
        True when names and columns are equal.
        """
    def __init__(self, measurement_type: str, measurement_type_short: str, columns: collections.abc.Sequence[ColumnHeader]) -> None:
        """
        Creates a header from the method's long and short names and the columns.
        """
    def get_columns(self) -> list[ColumnHeader]:
        """
        The column headers, as a list, in column order.
        """
    def get_number_of_columns(self) -> int:
        """
        The number of columns.
        """
    def get_short_type(self) -> str:
        """
        The short name of the measurement method.
        """
    def get_type(self) -> str:
        """
        The long name of the measurement method.
        """
class DatasetInfo:
    """
    Summary information about a dataset.
    """
    @property
    def first_time_value(self) -> float:
        """
        first timestamp in the dataset
        """
    @property
    def jobInfo(self) -> JobInfo:
        """
        information about the job that created this dataset
        """
    @property
    def job_type(self) -> str:
        """
        dataset type identifier
        """
    @property
    def job_type_short(self) -> str:
        """
        shortened dataset type name
        """
    @property
    def num_rows(self) -> int:
        """
        number of rows in the dataset
        """
class AbstractDataset:
    """
    Interface of the result datasets.
    """
    def get_info(self) -> DatasetInfo:
        """
        Get summary information about the dataset
        """
    def get_job_info(self) -> JobInfo:
        """
        Get info to the job
        """
class DataSet(AbstractDataset, xml.XmlSerializable):
    """
    Base class of the result datasets.
    """
class DcDataset(DataSet):
    """
    Class which contains DC data.
    """
    EMPTY_TRACK: typing.ClassVar[list] = list()
    @staticmethod
    def from_binary(payload: bytes, header: LiveDataHeader, job_info: typing.Any = None) -> DcDataset:
        """
        Builds a dataset from a flat binary table and its live-data header.
        """
    @staticmethod
    def from_json_events(text: str) -> typing.Any:
        """
        Builds a dataset from a JSON array of recorded live-data events (header, rows, finished).
        
        Returns the DcDataset, or an ErrorObject if the text is not valid JSON or the events are malformed.
        """
    def __copy__(self) -> DcDataset:
        """
        A copy of the dataset.
        """
    def __deepcopy__(self, memo: dict) -> DcDataset:
        """
        A copy of the dataset (the values are always copied).
        """
    def __init__(self, header: collections.abc.Sequence[ColumnHeader], tracks: collections.abc.Sequence[collections.abc.Sequence[typing.SupportsFloat | typing.SupportsIndex]] = [], job_type: str = '', job_type_short: str = '', job_info: typing.Any = None) -> None:
        """
        Creates a DC dataset from column headers and, optionally, one list of values per column.
        
        Raises ValueError when tracks is not empty and its length differs from the number of columns.
        """
    def append(self, to_append: DcDataset, time_offset: typing.SupportsFloat | typing.SupportsIndex) -> bool:
        """
        Appends another DC dataset; returns True on success.
        
        The time track of the appended data continues after the last time value plus time_offset seconds.
        Columns missing on either side are filled with NaN; numpy views taken earlier become invalid.
        """
    def get_dc_dimensions(self) -> list[str]:
        """
        The dimension (track name) of every column, in order.
        """
    def get_dc_track(self, dimension: str) -> typing.Any:
        """
        The values of the track of that dimension as a list, or DcDataset.EMPTY_TRACK if the dimension does not exist.
        """
    @typing.overload
    def get_dc_track_array(self, dimension: str) -> numpy.ndarray:
        """
        A read-only numpy float64 view of the track of that dimension, without copy (empty if unknown).
        
        The array keeps the dataset alive. append() invalidates views taken before it.
        """
    @typing.overload
    def get_dc_track_array(self, index: typing.SupportsInt | typing.SupportsIndex) -> numpy.ndarray:
        """
        A read-only numpy float64 view of the track at that column index, without copy (as track_as_numpy).
        
        Every column has its track, also without rows (then the array is empty). Raises IndexError for an index out
        of range. append() invalidates views taken before it.
        """
    def get_dc_tracks(self) -> dict:
        """
        A dict of dimension to the list of values of that track, in column order.
        """
    def get_header(self) -> list[ColumnHeader]:
        """
        The column headers, as a list, in column order.
        """
    def get_included_datasets(self) -> list[tuple[str, int]]:
        """
        A list of (job type, number of rows) pairs, one per job result in this dataset.
        """
    def get_job_type(self) -> str:
        """
        The job type ("DC Combined" after joining other kinds).
        """
    def get_job_type_short(self) -> str:
        """
        The short job type ("DC" after joining other kinds).
        """
    def get_row_count(self) -> int:
        """
        The number of rows (the length of the first track).
        """
    def get_tracks(self) -> list[list[float]]:
        """
        The tracks as a list of lists of floats, in column order.
        """
    def index_of(self, column_header: ColumnHeader) -> int:
        """
        Index of a column, or -1 if there is none.
        """
    def index_of_dimension(self, dimension_name: str) -> int:
        """
        Index of a column, or -1 if there is none.
        """
    def index_of_urn(self, urn: str) -> int:
        """
        Index of a column, or -1 if there is none.
        """
    def recreate_original_job(self) -> typing.Any:
        """
        The job that produced the dataset, with its parameters, metadata and stop conditions, or None if the job type is unknown or the parameters are missing.
        """
    def to_binary(self) -> typing.Any:
        """
        The flat binary table (column-major little-endian float64) as bytes, or an ErrorObject for a ragged dataset.
        """
    def track_as_numpy(self, index: typing.SupportsInt | typing.SupportsIndex) -> numpy.ndarray:
        """
        A read-only numpy float64 view of the track at that column index, without copy.
        
        Raises IndexError for an index out of range. append() invalidates views taken before it.
        """
class ImpedanceDataHeader:
    """
    The columns of one measured impedance: the quotient of a numerator over a denominator signal path.
    """
    __hash__: typing.ClassVar[None] = None
    def __eq__(self, other: ImpedanceDataHeader) -> bool:
        """
        True when paths, name and columns are equal.
        """
    def __init__(self, numerator: str, denominator: str, columns: collections.abc.Sequence[ColumnHeader] = [], impedance_name: str = '') -> None:
        """
        Creates an impedance header from the numerator and denominator path uris, its columns and its name.
        """
    def __repr__(self) -> str:
        """
        The header's numerator and denominator.
        """
    def get_columns(self) -> list[ColumnHeader]:
        """
        The column headers of the group, as a list of :class:`velmar_link.ColumnHeader`, in column order.
        """
    def get_denominator_path(self) -> str:
        """
        The uri of the denominator path (typically a current path).
        """
    def get_impedance_name(self) -> str:
        """
        The configured name of the impedance; an empty string when none was configured.
        """
    def get_numerator_path(self) -> str:
        """
        The uri of the numerator path (typically a voltage path).
        """
    def get_uri(self) -> str:
        """
        The numerator uri, "/" and the denominator uri.
        """
class PathDataHeader:
    """
    The columns of one sampled signal path, named by the path's dimension (such as "voltage").
    """
    __hash__: typing.ClassVar[None] = None
    def __eq__(self, other: PathDataHeader) -> bool:
        """
        True when name, uri, columns and polynomial are equal.
        """
    def __init__(self, name: str, uri: str, columns: collections.abc.Sequence[ColumnHeader] = []) -> None:
        """
        Creates a path header from the path's dimension name, its uri and its columns.
        """
    def __repr__(self) -> str:
        """
        The header's name and uri.
        """
    def get_columns(self) -> list[ColumnHeader]:
        """
        The column headers of the group, as a list of :class:`velmar_link.ColumnHeader`, in column order.
        """
    def get_name(self) -> str:
        """
        The path's dimension name (such as "voltage" or "current"), the key of :meth:`velmar_link.EisDataset.get_paths_data`; "unnamed" when the device sent none.
        """
    def get_polynomial(self) -> UserPolynomial | None:
        """
        The user polynomial that converts the raw path value, or None.
        """
    def get_uri(self) -> str:
        """
        The uri of the signal path.
        """
class PotentiostatDataHeader:
    """
    The columns recorded for one potentiostat at each frequency point.
    """
    __hash__: typing.ClassVar[None] = None
    def __eq__(self, other: PotentiostatDataHeader) -> bool:
        """
        True when uri, columns and polynomials are equal.
        """
    def __init__(self, uri: str, columns: collections.abc.Sequence[ColumnHeader] = []) -> None:
        """
        Creates a potentiostat header from its uri and its columns.
        """
    def __repr__(self) -> str:
        """
        The header's uri.
        """
    def get_columns(self) -> list[ColumnHeader]:
        """
        The column headers of the group, as a list of :class:`velmar_link.ColumnHeader`, in column order.
        """
    def get_polynomial(self) -> UserPolynomial | None:
        """
        The user polynomial of the potentiostat, or None.
        """
    def get_potentiostatic_polynomial(self) -> UserPolynomial | None:
        """
        The potentiostatic user polynomial of the potentiostat, or None.
        """
    def get_uri(self) -> str:
        """
        The uri of the potentiostat, such as "MAIN:1:POT".
        """
class LiveDataHeaderEis(LiveDataHeader):
    """
    The header of an impedance job's live data: the meta columns and the column groups of each impedance, path and potentiostat.
    
    :meth:`get_columns` lists every column in the order of the binary result table.
    """
    __hash__: typing.ClassVar[None] = None
    def __eq__(self, other: LiveDataHeaderEis) -> bool:
        """
        True when names and every group are equal.
        """
    def __init__(self, impedances: collections.abc.Sequence[ImpedanceDataHeader], paths: collections.abc.Sequence[PathDataHeader], async_paths: collections.abc.Sequence[PathDataHeader] = [], potentiostats: collections.abc.Sequence[PotentiostatDataHeader] = [], meta: collections.abc.Sequence[ColumnHeader] = []) -> None:
        """
        Creates a header from its groups; the measurement type is "Electrochemical Impedance Spectroscopy" ("EIS").
        """
    def get_async_paths_data_headers(self) -> list[PathDataHeader]:
        """
        The headers of the asynchronously sampled paths, a list of :class:`velmar_link.PathDataHeader`.
        """
    def get_impedances_headers(self) -> list[ImpedanceDataHeader]:
        """
        The headers of the impedances, a list of :class:`velmar_link.ImpedanceDataHeader`.
        """
    def get_meta_data_header(self) -> list[ColumnHeader]:
        """
        The meta columns (frequency, periods, time, wave_id, wave_size, ...), a list of :class:`velmar_link.ColumnHeader`.
        """
    def get_paths_data_headers(self) -> list[PathDataHeader]:
        """
        The headers of the synchronously sampled paths, a list of :class:`velmar_link.PathDataHeader` in header order.
        """
    def get_potentiostats_data_headers(self) -> list[PotentiostatDataHeader]:
        """
        The headers of the potentiostats, a list of :class:`velmar_link.PotentiostatDataHeader`.
        """
class LiveDataRowEis:
    """
    One frequency point of an impedance job's live data; each group holds one list of values per element declared by the header, in header order.
    """
    def get_async_paths(self) -> list[list[float]]:
        """
        One list of values per asynchronous path.
        """
    def get_impedances(self) -> list[list[float]]:
        """
        One list of values per impedance, ordered like its columns.
        """
    def get_meta(self) -> list[float]:
        """
        The row's meta values as one flat list, ordered like :meth:`velmar_link.LiveDataHeaderEis.get_meta_data_header`.
        """
    def get_paths(self) -> list[list[float]]:
        """
        One list of values per synchronous path.
        """
    def get_paths_waves(self) -> list[list[float]]:
        """
        One wave per sync path; an empty list for a row that refers to a wave sent with an earlier row of the same wave_id.
        """
    def get_potentiostats(self) -> list[list[float]]:
        """
        One list of values per potentiostat.
        """
class LiveDataWavesEis:
    """
    A preview fragment of the waves being recorded at the current frequency point; not needed to build the result.
    """
    def get_full_wave_size(self) -> int:
        """
        Samples of the complete wave (0 if the device does not send it).
        """
    def get_offset(self) -> int:
        """
        Index of the fragment's first sample (0 if the device does not send it).
        """
    def get_waves(self) -> list[list[float]]:
        """
        One fragment per sync path, a list of lists of floats.
        """
class DcLiveDataCollector:
    """
    Collects a DC job's live data into a DcDataset without calling Python.
    """
    def get_dataset(self) -> DcDataset:
        """
        A copy of the dataset collected so far; call it after the job has ended.
        """
    def is_finished(self) -> bool:
        """
        True once the live data of the job has ended.
        """
class EisDataset(DataSet):
    """
    Class which contains EIS data.
    
    Lookups never raise: what is not found is one of the class constants EMPTY_TRACK,
    EMPTY_COMPLEX_TRACK, EMPTY_SPECTRA, EMPTY_TRACKWAVE, INVALID_PATH, INVALID_IMPEDANCE_DATA and
    INVALID_POTENTIOSTAT; compare with ``is``. The ``*_array`` methods return numpy views without copy.
    """
    class ImpedanceData:
        """
        One impedance of an EisDataset: its tracks by name and the values derived from them.
        
        The object belongs to its dataset and keeps it alive; AFTER :meth:`velmar_link.EisDataset.append` IT IS INVALID.
        """
        def get_calculated_complex_impedance_track(self) -> list[complex]:
            """
            The impedance as a list of complex, m·cos φ + j·m·sin φ from "|impedance|" and "phase" (radians); empty if one of them is missing.
            """
        def get_calculated_spectra(self) -> dict[float, complex]:
            """
            A dict of frequency (float, Hz) to the complex impedance at that frequency.
            """
        def get_complex_impedance_array(self) -> numpy.ndarray:
            """
            The impedance as a new numpy complex128 array, computed from "|impedance|" and "phase".
            """
        def get_denominator_dimension(self) -> str:
            """
            The dimension name of the denominator path (such as "current"), or its uri if the path is not in the dataset.
            """
        def get_header(self) -> ImpedanceDataHeader:
            """
            The :class:`velmar_link.ImpedanceDataHeader` of the impedance.
            """
        def get_impedance_name(self) -> str:
            """
            The configured name, or the "numerator/denominator" signal-path quotient when none was configured.
            """
        def get_numerator_dimension(self) -> str:
            """
            The dimension name of the numerator path (such as "voltage"), or its uri if the path is not in the dataset.
            """
        def get_track(self, track_name: str) -> list[float]:
            """
            The values of the track of that name as a list, or EisDataset.EMPTY_TRACK if there is none.
            """
        def get_track_array(self, track_name: str) -> numpy.ndarray:
            """
            The track of that name as a numpy array (empty if there is none).
            
            The read-only float64 array views the dataset's memory without copy and keeps the dataset alive; :meth:`velmar_link.EisDataset.append` invalidates views taken before it.
            """
        def get_track_names(self) -> list[str]:
            """
            The names (dimensions) of its tracks, in column order.
            """
        def is_valid(self) -> bool:
            """
            False for the sentinel EisDataset.INVALID_IMPEDANCE_DATA.
            """
    class PathData:
        """
        One synchronously sampled path of an EisDataset: its tracks, its waves and the impedances it takes part in.
        
        The object belongs to its dataset and keeps it alive; AFTER :meth:`velmar_link.EisDataset.append` IT IS INVALID.
        """
        def get_dc_track(self) -> list[float]:
            """
            The "dc" track as a list, or EisDataset.EMPTY_TRACK if there is none.
            """
        def get_header(self) -> PathDataHeader:
            """
            The :class:`velmar_link.PathDataHeader` of the path.
            """
        def get_impedance_data(self, name: str) -> EisDataset.ImpedanceData:
            """
            The impedance of that name (impedance name or "numerator/denominator") in which this path takes part, or EisDataset.INVALID_IMPEDANCE_DATA.
            """
        def get_impedances_data(self) -> list[EisDataset.ImpedanceData]:
            """
            The :class:`velmar_link.EisDataset.ImpedanceData` of the impedances in which this path is numerator or denominator.
            """
        def get_name(self) -> str:
            """
            The path's dimension name, such as "voltage".
            """
        def get_track(self, track_name: str) -> list[float]:
            """
            The values of the track of that name as a list, or EisDataset.EMPTY_TRACK if there is none.
            """
        def get_track_array(self, track_name: str) -> numpy.ndarray:
            """
            The track of that name as a numpy array (empty if there is none).
            
            The read-only float64 array views the dataset's memory without copy and keeps the dataset alive; :meth:`velmar_link.EisDataset.append` invalidates views taken before it.
            """
        def get_track_names(self) -> list[str]:
            """
            The names (dimensions) of its tracks, in column order.
            """
        def get_wave_array(self, wave_id: typing.SupportsInt | typing.SupportsIndex) -> numpy.ndarray:
            """
            The wave of that id as a numpy array; raises IndexError for an id out of range.
            
            The read-only float64 array views the dataset's memory without copy and keeps the dataset alive; :meth:`velmar_link.EisDataset.append` invalidates views taken before it.
            """
        def get_waves(self) -> list[list[float]]:
            """
            The recorded waves as a list of lists of floats, indexed by wave id.
            """
        def is_valid(self) -> bool:
            """
            False for the sentinel EisDataset.INVALID_PATH.
            """
    class PotentiostatData:
        """
        One potentiostat of an EisDataset: its tracks by name.
        
        The object belongs to its dataset and keeps it alive; AFTER :meth:`velmar_link.EisDataset.append` IT IS INVALID.
        """
        def get_dc_track(self) -> list[float]:
            """
            The "dc" track as a list, or EisDataset.EMPTY_TRACK if there is none.
            """
        def get_header(self) -> PotentiostatDataHeader:
            """
            The :class:`velmar_link.PotentiostatDataHeader` of the potentiostat.
            """
        def get_identifier(self) -> str:
            """
            The uri of the potentiostat, such as "MAIN:1:POT".
            """
        def get_track(self, track_name: str) -> list[float]:
            """
            The values of the track of that name as a list, or EisDataset.EMPTY_TRACK if there is none.
            """
        def get_track_array(self, track_name: str) -> numpy.ndarray:
            """
            The track of that name as a numpy array (empty if there is none).
            
            The read-only float64 array views the dataset's memory without copy and keeps the dataset alive; :meth:`velmar_link.EisDataset.append` invalidates views taken before it.
            """
        def get_track_names(self) -> list[str]:
            """
            The names (dimensions) of its tracks, in column order.
            """
        def is_valid(self) -> bool:
            """
            False for the sentinel EisDataset.INVALID_POTENTIOSTAT.
            """
    EMPTY_COMPLEX_TRACK: typing.ClassVar[list] = list()
    EMPTY_SPECTRA: typing.ClassVar[dict] = {}
    EMPTY_TRACK: typing.ClassVar[list] = list()
    EMPTY_TRACKWAVE: typing.ClassVar[list] = list()
    INVALID_IMPEDANCE_DATA: typing.ClassVar[EisDataset.ImpedanceData]
    INVALID_PATH: typing.ClassVar[EisDataset.PathData]
    INVALID_POTENTIOSTAT: typing.ClassVar[EisDataset.PotentiostatData]
    _fields: typing.ClassVar[tuple[str, ...]] = ('get_row_count', 'get_frequencies', 'get_periods', 'get_times', 'get_meta_data_header', 'get_meta_column', 'get_wave_ids', 'get_wave_sizes', 'get_wave_id_for_row', 'get_wave_for_row', 'get_impedances_dimensions', 'get_impedances_names', 'get_impedances_data', 'get_impedance_data', 'get_impedance_data_by_name', 'get_paths_dimensions', 'get_paths_data', 'get_path_data', 'get_potentiostats_identifiers', 'get_potentiostats_data', 'get_potentiostat_data', 'append', 'recreate_original_job')
    @staticmethod
    def from_binary(payload: bytes, header: LiveDataHeaderEis, row_count: typing.SupportsInt | typing.SupportsIndex = 0, job_info: JobInfo | None = None) -> EisDataset | ErrorObject:
        """
        Builds a dataset from its flat binary form and header; row_count 0 derives it from the length. Returns the EisDataset or an ErrorObject.
        """
    @staticmethod
    def from_json_events(text: str) -> EisDataset | ErrorObject:
        """
        Builds a dataset from a JSON array of recorded live-data events (LIVE_DATA_HEADER_EIS, LIVE_DATA_ROW_EIS, LIVE_DATA_FINISHED).
        
        Returns the EisDataset, or an ErrorObject if the text is not valid JSON or the events are malformed.
        """
    def __copy__(self) -> EisDataset:
        """
        A copy of the dataset.
        """
    def __deepcopy__(self, memo: dict) -> EisDataset:
        """
        A copy of the dataset (the values are always copied).
        """
    @typing.overload
    def __init__(self) -> None:
        """
        Creates an empty impedance dataset.
        """
    @typing.overload
    def __init__(self, header: LiveDataHeaderEis, job_info: JobInfo | None = None) -> None:
        """
        Creates an impedance dataset without rows, with one empty track per column of the header.
        """
    def append(self, to_append: EisDataset, time_offset: typing.SupportsFloat | typing.SupportsIndex) -> bool:
        """
        Appends another impedance result behind this one; True on success.
        
        The time track of the appended rows continues after the last time value plus time_offset seconds.
        AFTER THAT OPERATION ALL HELPER OBJECTS ARE INVALID (ImpedanceData, PathData, PotentiostatData
        and numpy views taken before).
        """
    def dedup_waves(self) -> None:
        """
        Merges identical waves of each sync path (exact equality of every sample) and renumbers the wave ids. Downloads and imports already do it; helper objects are invalid afterwards.
        """
    def get_frequencies(self) -> list[float]:
        """
        The "frequency" meta track (Hz) as a list.
        """
    def get_frequencies_array(self) -> numpy.ndarray:
        """
        The "frequency" meta track as a numpy array.
        
        The read-only float64 array views the dataset's memory without copy and keeps the dataset alive; :meth:`velmar_link.EisDataset.append` invalidates views taken before it.
        """
    def get_header(self) -> LiveDataHeaderEis:
        """
        The :class:`velmar_link.LiveDataHeaderEis` of the dataset.
        """
    def get_impedance_array(self, index: typing.SupportsInt | typing.SupportsIndex) -> numpy.ndarray:
        """
        Impedance `index` (in header order) as a new numpy complex128 array; empty when out of range or without "|impedance|" or "phase".
        """
    @typing.overload
    def get_impedance_data(self, dimension: str) -> EisDataset.ImpedanceData:
        """
        The first impedance whose numerator or denominator is that path (dimension name or uri), or EisDataset.INVALID_IMPEDANCE_DATA.
        """
    @typing.overload
    def get_impedance_data(self, numerator: str, denominator: str) -> EisDataset.ImpedanceData:
        """
        The impedance of that numerator and denominator path (dimension names or uris), or EisDataset.INVALID_IMPEDANCE_DATA.
        """
    @typing.overload
    def get_impedance_data(self) -> EisDataset.ImpedanceData:
        """
        The first impedance (in key order), or EisDataset.INVALID_IMPEDANCE_DATA when there is none.
        """
    def get_impedance_data_by_name(self, impedance_name: str) -> EisDataset.ImpedanceData:
        """
        The first impedance whose configured name is that text, or EisDataset.INVALID_IMPEDANCE_DATA.
        """
    def get_impedances_data(self) -> dict[tuple[str, str], EisDataset.ImpedanceData]:
        """
        A dict of (numerator dimension, denominator dimension) to :class:`velmar_link.EisDataset.ImpedanceData`.
        """
    def get_impedances_dimensions(self) -> list[str]:
        """
        The impedances as "numerator dimension/denominator dimension" texts, in the order of get_impedances_data.
        """
    def get_impedances_names(self) -> list[str]:
        """
        The names of the impedances, in the same order as get_impedances_dimensions.
        """
    def get_included_datasets(self) -> list[tuple[str, int]]:
        """
        A list of (job type, number of rows) pairs, one per job result in this dataset.
        """
    def get_job_type(self) -> str:
        """
        The job type ("EIS Combined" after joining other kinds).
        """
    def get_job_type_short(self) -> str:
        """
        The short job type.
        """
    def get_meta_column(self, index: typing.SupportsInt | typing.SupportsIndex) -> list[float]:
        """
        Meta track `index` as a list, or EisDataset.EMPTY_TRACK when the index is out of range.
        """
    def get_meta_column_array(self, index: typing.SupportsInt | typing.SupportsIndex) -> numpy.ndarray:
        """
        Meta track `index` as a numpy array (empty when out of range).
        
        The read-only float64 array views the dataset's memory without copy and keeps the dataset alive; :meth:`velmar_link.EisDataset.append` invalidates views taken before it.
        """
    def get_meta_data_header(self) -> list[ColumnHeader]:
        """
        The :class:`velmar_link.ColumnHeader` of each meta column, in column order.
        """
    def get_path_data(self, identifier: str) -> EisDataset.PathData:
        """
        The sync path of that dimension name, or EisDataset.INVALID_PATH.
        """
    def get_paths_data(self) -> dict[str, EisDataset.PathData]:
        """
        A dict of dimension name to :class:`velmar_link.EisDataset.PathData`, sorted by dimension name.
        """
    def get_paths_dimensions(self) -> list[str]:
        """
        The dimension names of the sync paths.
        """
    def get_periods(self) -> list[float]:
        """
        The "periods" meta track as a list.
        """
    def get_potentiostat_data(self, identifier: str) -> EisDataset.PotentiostatData:
        """
        The potentiostat of that uri, or EisDataset.INVALID_POTENTIOSTAT.
        """
    def get_potentiostats_data(self) -> dict[str, EisDataset.PotentiostatData]:
        """
        A dict of uri to :class:`velmar_link.EisDataset.PotentiostatData`.
        """
    def get_potentiostats_identifiers(self) -> list[str]:
        """
        The uris of the potentiostats.
        """
    def get_row_count(self) -> int:
        """
        The number of rows (frequency points).
        """
    def get_times(self) -> list[float]:
        """
        The "time" meta track (s from the job's start) as a list.
        """
    def get_times_array(self) -> numpy.ndarray:
        """
        The "time" meta track as a numpy array.
        
        The read-only float64 array views the dataset's memory without copy and keeps the dataset alive; :meth:`velmar_link.EisDataset.append` invalidates views taken before it.
        """
    @typing.overload
    def get_wave_for_row(self, path_index: typing.SupportsInt | typing.SupportsIndex, row: typing.SupportsInt | typing.SupportsIndex) -> list[float]:
        """
        The wave of a row on the sync path of that index, or EisDataset.EMPTY_TRACKWAVE.
        """
    @typing.overload
    def get_wave_for_row(self, dimension: str, row: typing.SupportsInt | typing.SupportsIndex) -> list[float]:
        """
        The wave of a row on the sync path of that dimension name, or EisDataset.EMPTY_TRACKWAVE.
        """
    def get_wave_for_row_array(self, path_index: typing.SupportsInt | typing.SupportsIndex, row: typing.SupportsInt | typing.SupportsIndex) -> numpy.ndarray:
        """
        The wave of a row on the sync path of that index as a numpy array (empty if none).
        
        The read-only float64 array views the dataset's memory without copy and keeps the dataset alive; :meth:`velmar_link.EisDataset.append` invalidates views taken before it.
        """
    def get_wave_id_for_row(self, row: typing.SupportsInt | typing.SupportsIndex) -> int:
        """
        The wave id of a row: the row index itself when the dataset has no wave-id column.
        """
    def get_wave_ids(self) -> list[float]:
        """
        The "wave_id" meta track: the wave of each row; -1 means the point carries no wave.
        """
    def get_wave_sizes(self) -> list[float]:
        """
        The "wave_size" meta track: samples per wave of each row.
        """
    def has_consistent_shape(self) -> bool:
        """
        True when every track has the row count.
        """
    def recreate_original_job(self) -> AbstractMeasurementJob | None:
        """
        The job that produced the dataset, with its parameters and metadata, or None if the job type is unknown or the parameters are missing.
        """
    def to_binary(self) -> tuple[LiveDataHeaderEis, int, bytes] | ErrorObject:
        """
        The flat binary form: a tuple (LiveDataHeaderEis, row count, bytes), or an ErrorObject if the dataset does not have the shape its header describes.
        """
class ImpedanceData:
    """
    One impedance of an EisDataset: its tracks by name and the values derived from them.
    
    The object belongs to its dataset and keeps it alive; AFTER :meth:`velmar_link.EisDataset.append` IT IS INVALID.
    """
    def get_calculated_complex_impedance_track(self: EisDataset.ImpedanceData) -> list[complex]:
        """
        The impedance as a list of complex, m·cos φ + j·m·sin φ from "|impedance|" and "phase" (radians); empty if one of them is missing.
        """
    def get_calculated_spectra(self: EisDataset.ImpedanceData) -> dict[float, complex]:
        """
        A dict of frequency (float, Hz) to the complex impedance at that frequency.
        """
    def get_complex_impedance_array(self: EisDataset.ImpedanceData) -> numpy.ndarray:
        """
        The impedance as a new numpy complex128 array, computed from "|impedance|" and "phase".
        """
    def get_denominator_dimension(self: EisDataset.ImpedanceData) -> str:
        """
        The dimension name of the denominator path (such as "current"), or its uri if the path is not in the dataset.
        """
    def get_header(self: EisDataset.ImpedanceData) -> ImpedanceDataHeader:
        """
        The :class:`velmar_link.ImpedanceDataHeader` of the impedance.
        """
    def get_impedance_name(self: EisDataset.ImpedanceData) -> str:
        """
        The configured name, or the "numerator/denominator" signal-path quotient when none was configured.
        """
    def get_numerator_dimension(self: EisDataset.ImpedanceData) -> str:
        """
        The dimension name of the numerator path (such as "voltage"), or its uri if the path is not in the dataset.
        """
    def get_track(self: EisDataset.ImpedanceData, track_name: str) -> list[float]:
        """
        The values of the track of that name as a list, or EisDataset.EMPTY_TRACK if there is none.
        """
    def get_track_array(self: EisDataset.ImpedanceData, track_name: str) -> numpy.ndarray:
        """
        The track of that name as a numpy array (empty if there is none).
        
        The read-only float64 array views the dataset's memory without copy and keeps the dataset alive; :meth:`velmar_link.EisDataset.append` invalidates views taken before it.
        """
    def get_track_names(self: EisDataset.ImpedanceData) -> list[str]:
        """
        The names (dimensions) of its tracks, in column order.
        """
    def is_valid(self: EisDataset.ImpedanceData) -> bool:
        """
        False for the sentinel EisDataset.INVALID_IMPEDANCE_DATA.
        """
class PathData:
    """
    One synchronously sampled path of an EisDataset: its tracks, its waves and the impedances it takes part in.
    
    The object belongs to its dataset and keeps it alive; AFTER :meth:`velmar_link.EisDataset.append` IT IS INVALID.
    """
    def get_dc_track(self: EisDataset.PathData) -> list[float]:
        """
        The "dc" track as a list, or EisDataset.EMPTY_TRACK if there is none.
        """
    def get_header(self: EisDataset.PathData) -> PathDataHeader:
        """
        The :class:`velmar_link.PathDataHeader` of the path.
        """
    def get_impedance_data(self: EisDataset.PathData, name: str) -> EisDataset.ImpedanceData:
        """
        The impedance of that name (impedance name or "numerator/denominator") in which this path takes part, or EisDataset.INVALID_IMPEDANCE_DATA.
        """
    def get_impedances_data(self: EisDataset.PathData) -> list[EisDataset.ImpedanceData]:
        """
        The :class:`velmar_link.EisDataset.ImpedanceData` of the impedances in which this path is numerator or denominator.
        """
    def get_name(self: EisDataset.PathData) -> str:
        """
        The path's dimension name, such as "voltage".
        """
    def get_track(self: EisDataset.PathData, track_name: str) -> list[float]:
        """
        The values of the track of that name as a list, or EisDataset.EMPTY_TRACK if there is none.
        """
    def get_track_array(self: EisDataset.PathData, track_name: str) -> numpy.ndarray:
        """
        The track of that name as a numpy array (empty if there is none).
        
        The read-only float64 array views the dataset's memory without copy and keeps the dataset alive; :meth:`velmar_link.EisDataset.append` invalidates views taken before it.
        """
    def get_track_names(self: EisDataset.PathData) -> list[str]:
        """
        The names (dimensions) of its tracks, in column order.
        """
    def get_wave_array(self: EisDataset.PathData, wave_id: typing.SupportsInt | typing.SupportsIndex) -> numpy.ndarray:
        """
        The wave of that id as a numpy array; raises IndexError for an id out of range.
        
        The read-only float64 array views the dataset's memory without copy and keeps the dataset alive; :meth:`velmar_link.EisDataset.append` invalidates views taken before it.
        """
    def get_waves(self: EisDataset.PathData) -> list[list[float]]:
        """
        The recorded waves as a list of lists of floats, indexed by wave id.
        """
    def is_valid(self: EisDataset.PathData) -> bool:
        """
        False for the sentinel EisDataset.INVALID_PATH.
        """
class PotentiostatData:
    """
    One potentiostat of an EisDataset: its tracks by name.
    
    The object belongs to its dataset and keeps it alive; AFTER :meth:`velmar_link.EisDataset.append` IT IS INVALID.
    """
    def get_dc_track(self: EisDataset.PotentiostatData) -> list[float]:
        """
        The "dc" track as a list, or EisDataset.EMPTY_TRACK if there is none.
        """
    def get_header(self: EisDataset.PotentiostatData) -> PotentiostatDataHeader:
        """
        The :class:`velmar_link.PotentiostatDataHeader` of the potentiostat.
        """
    def get_identifier(self: EisDataset.PotentiostatData) -> str:
        """
        The uri of the potentiostat, such as "MAIN:1:POT".
        """
    def get_track(self: EisDataset.PotentiostatData, track_name: str) -> list[float]:
        """
        The values of the track of that name as a list, or EisDataset.EMPTY_TRACK if there is none.
        """
    def get_track_array(self: EisDataset.PotentiostatData, track_name: str) -> numpy.ndarray:
        """
        The track of that name as a numpy array (empty if there is none).
        
        The read-only float64 array views the dataset's memory without copy and keeps the dataset alive; :meth:`velmar_link.EisDataset.append` invalidates views taken before it.
        """
    def get_track_names(self: EisDataset.PotentiostatData) -> list[str]:
        """
        The names (dimensions) of its tracks, in column order.
        """
    def is_valid(self: EisDataset.PotentiostatData) -> bool:
        """
        False for the sentinel EisDataset.INVALID_POTENTIOSTAT.
        """
class AcLiveDataCollector:
    """
    Collects an impedance job's live data into an EisDataset without calling Python: the header starts the dataset, each row adds a frequency point with its waves.
    """
    def get_dataset(self) -> EisDataset:
        """
        A copy of the dataset collected so far; call it after the job has ended.
        """
    def get_wave_fragment_count(self) -> int:
        """
        The number of wave preview fragments received since the header.
        """
    def is_finished(self) -> bool:
        """
        True once the live data of the job has ended.
        """
class VrbImporter:
    """
    Imports the binary dataset snapshot files (extension .vrb) that the device's resource browser offers as "With Header" download.
    
    A snapshot is the job result's resource description as JSON text, one zero byte and the
    dataset's binary form; the workstation's emulator offers it as the ``VELMAR_BINARY`` resource
    with the job result's id. A DC result gives a :class:`velmar_link.DcDataset`, an impedance
    result an :class:`velmar_link.EisDataset`. Files written by an older protocol version are
    read with the layout of their version; files of a newer one are rejected with
    ``PROTOCOL_VERSION_MISMATCH`` unless the mismatch is ignored. All failures are returned as
    :class:`velmar_link.ErrorObject`; no method raises.
    """
    def __init__(self, ignore_protocol_version_mismatch: bool = False) -> None:
        """
        Create an importer.
        
        :param ignore_protocol_version_mismatch: import files of a newer protocol version instead of rejecting them.
        """
    def get_ignore_protocol_version_mismatch(self) -> bool:
        """
        Whether files of a newer protocol version are imported instead of rejected.
        """
    def import_from_file(self, filename: os.PathLike | str | bytes) -> DataSet | ErrorObject:
        """
        Import a snapshot file.
        
        The description is read first, then the payload straight into the dataset's tracks.
        
        :param filename: the file, as ``str``, ``bytes`` or ``os.PathLike``.
        :returns: a :class:`velmar_link.DcDataset` or :class:`velmar_link.EisDataset`, or an :class:`velmar_link.ErrorObject`
            (``FILE_NOT_FOUND``, ``FILE_IS_EMPTY``, ``FILE_COULD_NOT_BE_OPENED``, ``FILE_COULD_NOT_BE_READ`` among others).
        """
    def import_from_file_as_dc_dataset(self, filename: os.PathLike | str | bytes) -> DcDataset | ErrorObject:
        """
        Import a snapshot file that must hold a DC dataset.
        
        :param filename: the file, as ``str``, ``bytes`` or ``os.PathLike``.
        :returns: a :class:`velmar_link.DcDataset`, or an :class:`velmar_link.ErrorObject`, also when the file holds an impedance dataset.
        """
    def import_from_file_as_eis_dataset(self, filename: os.PathLike | str | bytes) -> EisDataset | ErrorObject:
        """
        Import a snapshot file that must hold an impedance dataset.
        
        :param filename: the file, as ``str``, ``bytes`` or ``os.PathLike``.
        :returns: an :class:`velmar_link.EisDataset`, or an :class:`velmar_link.ErrorObject`, also when the file holds a DC dataset.
        """
    def import_from_memory(self, data: typing_extensions.Buffer) -> DataSet | ErrorObject:
        """
        Import a snapshot held in memory.
        
        :param data: the file's bytes (``bytes``, ``bytearray``, ``memoryview`` or any object with the buffer protocol).
        :returns: a :class:`velmar_link.DcDataset` or :class:`velmar_link.EisDataset`, or an :class:`velmar_link.ErrorObject`.
        """
    def import_from_memory_as_dc_dataset(self, data: typing_extensions.Buffer) -> DcDataset | ErrorObject:
        """
        Import a snapshot held in memory that must hold a DC dataset.
        
        :param data: the file's bytes (any object with the buffer protocol).
        :returns: a :class:`velmar_link.DcDataset`, or an :class:`velmar_link.ErrorObject`, also when the snapshot holds an impedance dataset.
        """
    def import_from_memory_as_eis_dataset(self, data: typing_extensions.Buffer) -> EisDataset | ErrorObject:
        """
        Import a snapshot held in memory that must hold an impedance dataset.
        
        :param data: the file's bytes (any object with the buffer protocol).
        :returns: an :class:`velmar_link.EisDataset`, or an :class:`velmar_link.ErrorObject`, also when the snapshot holds a DC dataset.
        """
    def set_ignore_protocol_version_mismatch(self, ignore: bool) -> None:
        """
        Set whether files of a newer protocol version are imported instead of rejected.
        
        :param ignore: ``True`` to import them.
        """
class VelmarLinkEventHandler:
    """
    Delivers events of one type to a Python callable. Made only by the static make_* methods.
    """
    @staticmethod
    def make_job_done_event_handler(callback: collections.abc.Callable[[JobInfo], None]) -> VelmarLinkEventHandler:
        """
        Handler of JOB_DONE events, sent once the job has left the queue, successful or not, also for jobs without live data; the callback receives a :class:`velmar_link.JobInfo`.
        
        The callback runs on the connection's thread with the interpreter lock held; an exception it raises is reported as unraisable. Pass the returned handler to :meth:`velmar_link.VelmarLink.set_event_handler`.
        """
    @staticmethod
    def make_job_log_message_event_handler(callback: collections.abc.Callable[[str, LogSeverityEnum, str, str], None]) -> VelmarLinkEventHandler:
        """
        Handler of MESSAGE_FROM_JOB events; the callback receives the job id (str), a :class:`velmar_link.LogSeverityEnum`, the date and time (str) and the message (str).
        
        The callback runs on the connection's thread with the interpreter lock held; an exception it raises is reported as unraisable. Pass the returned handler to :meth:`velmar_link.VelmarLink.set_event_handler`.
        """
    @staticmethod
    def make_job_status_update_event_handler(callback: collections.abc.Callable[[JobStatusEnum, JobInfo], None]) -> VelmarLinkEventHandler:
        """
        Handler of JOB_STATUS_UPDATE events; the callback receives the new :class:`velmar_link.JobStatusEnum` and a :class:`velmar_link.JobInfo`.
        
        The callback runs on the connection's thread with the interpreter lock held; an exception it raises is reported as unraisable. Pass the returned handler to :meth:`velmar_link.VelmarLink.set_event_handler`.
        """
    @staticmethod
    def make_live_data_finished_event_handler(callback: collections.abc.Callable[[JobInfo], None]) -> VelmarLinkEventHandler:
        """
        Handler of LIVE_DATA_FINISHED events; the callback receives a :class:`velmar_link.JobInfo`.
        
        The callback runs on the connection's thread with the interpreter lock held; an exception it raises is reported as unraisable. Pass the returned handler to :meth:`velmar_link.VelmarLink.set_event_handler`.
        """
    @staticmethod
    def make_live_data_header_eis_event_handler(callback: collections.abc.Callable[[LiveDataHeaderEis, JobInfo], None]) -> VelmarLinkEventHandler:
        """
        Handler of LIVE_DATA_HEADER_EIS events; the callback receives a :class:`velmar_link.LiveDataHeaderEis` and a :class:`velmar_link.JobInfo`.
        
        The callback runs on the connection's thread with the interpreter lock held; an exception it raises is reported as unraisable. Pass the returned handler to :meth:`velmar_link.VelmarLink.set_event_handler`.
        """
    @staticmethod
    def make_live_data_header_event_handler(callback: collections.abc.Callable[[LiveDataHeader, JobInfo], None]) -> VelmarLinkEventHandler:
        """
        Handler of LIVE_DATA_HEADER events; the callback receives a :class:`velmar_link.LiveDataHeader` and a :class:`velmar_link.JobInfo`.
        
        The callback runs on the connection's thread with the interpreter lock held; an exception it raises is reported as unraisable. Pass the returned handler to :meth:`velmar_link.VelmarLink.set_event_handler`.
        """
    @staticmethod
    def make_live_data_row_eis_event_handler(callback: collections.abc.Callable[[LiveDataRowEis], None]) -> VelmarLinkEventHandler:
        """
        Handler of LIVE_DATA_ROW_EIS events; the callback receives a :class:`velmar_link.LiveDataRowEis`.
        
        The callback runs on the connection's thread with the interpreter lock held; an exception it raises is reported as unraisable. Pass the returned handler to :meth:`velmar_link.VelmarLink.set_event_handler`.
        """
    @staticmethod
    def make_live_data_rows_event_handler(callback: collections.abc.Callable[[list[list[float]]], None]) -> VelmarLinkEventHandler:
        """
        Handler of LIVE_DATA_ROWS events; the callback receives the rows as list[list[float]], described by the last header.
        
        The callback runs on the connection's thread with the interpreter lock held; an exception it raises is reported as unraisable. Pass the returned handler to :meth:`velmar_link.VelmarLink.set_event_handler`.
        """
    @staticmethod
    def make_live_data_wave_event_handler(callback: collections.abc.Callable[[LiveDataWavesEis], None]) -> VelmarLinkEventHandler:
        """
        Handler of LIVE_DATA_WAVES events; the callback receives a :class:`velmar_link.LiveDataWavesEis`.
        
        The callback runs on the connection's thread with the interpreter lock held; an exception it raises is reported as unraisable. Pass the returned handler to :meth:`velmar_link.VelmarLink.set_event_handler`.
        """
    @staticmethod
    def make_log_message_event_handler(callback: collections.abc.Callable[[LogSeverityEnum, str, str], None]) -> VelmarLinkEventHandler:
        """
        Handler of MESSAGE_FROM_SERVER events; the callback receives a :class:`velmar_link.LogSeverityEnum`, the date and time (str) and the message (str).
        
        The callback runs on the connection's thread with the interpreter lock held; an exception it raises is reported as unraisable. Pass the returned handler to :meth:`velmar_link.VelmarLink.set_event_handler`.
        """
    def get_type(self) -> EventTypeEnum:
        """
        Get the event for which this handler was created.
        """
class WorkstationInfo:
    """
    Identity of an RQ5, the reply of its "/id".
    """
    @property
    def cpu_card_uuid(self) -> str:
        """
        UUID of the CPU card
        """
    @property
    def firmware_build_id(self) -> str:
        """
        firmware build id
        """
    @property
    def firmware_version(self) -> str:
        """
        firmware version
        """
    @property
    def mode(self) -> WorkstationModeEnum:
        """
        :class:`velmar_link.WorkstationModeEnum` of the device
        """
    @property
    def model_name(self) -> str:
        """
        model name of the device
        """
    @property
    def protocol_version(self) -> int:
        """
        protocol version announced by the device in the handshake (0 if unknown)
        """
    @property
    def serial_number(self) -> str:
        """
        serial number of the device
        """
    @property
    def system_mac(self) -> str:
        """
        MAC address of the system
        """
    @property
    def system_name(self) -> str:
        """
        name of the system
        """
class WorkstationStatus:
    """
    Status of an RQ5, the reply of its "/status".
    """
    @property
    def busy(self) -> bool:
        """
        True while the device runs a job
        """
    @property
    def last_dc_calibration(self) -> str:
        """
        date of the last DC calibration
        """
    @property
    def mode(self) -> WorkstationModeEnum:
        """
        :class:`velmar_link.WorkstationModeEnum` of the device
        """
    @property
    def uptime(self) -> int:
        """
        uptime of the device in seconds
        """
class WebsocketConnectionInfo:
    """
    One WebSocket connection to the RQ5's server.
    """
    @property
    def connected_since(self) -> str:
        """
        time of the connect
        """
    @property
    def connection_id(self) -> str:
        """
        identifier of the connection
        """
    @property
    def remote_addr(self) -> str:
        """
        address of the client
        """
    @property
    def remote_port(self) -> int:
        """
        port of the client
        """
    @property
    def target(self) -> str:
        """
        target of the WebSocket handshake
        """
    @property
    def user_agent(self) -> str:
        """
        User-Agent of the client
        """
    @property
    def using_tls(self) -> bool:
        """
        True for a TLS connection
        """
class Resource:
    """
    Description of a resource stored on the RQ5.
    """
    DATA_CHUNK_SIZE_LIMIT: typing.ClassVar[int] = 1048576
    def get_creation_date(self) -> str:
        """
        :returns: the creation date as text.
        """
    def get_id(self) -> str:
        """
        :returns: the identifier of the resource.
        """
    def get_last_updated_date(self) -> str:
        """
        :returns: the date of the last change.
        """
    def get_name(self) -> str:
        """
        :returns: the name of the resource.
        """
    @property
    def created_by(self) -> str:
        """
        creator of the resource
        """
    @property
    def header(self) -> dict[str, typing.Any]:
        """
        header that travels beside the content, as a ``dict``
        """
    @property
    def job_id(self) -> str:
        """
        job that produced the resource, if any
        """
    @property
    def name(self) -> str:
        """
        name of the resource
        """
    @property
    def resource_id(self) -> str:
        """
        identifier of the resource
        """
    @property
    def size(self) -> int:
        """
        size of the content in bytes
        """
    @property
    def sub_type(self) -> str:
        """
        sub-type, e.g. the dataset kind of a job result
        """
    @property
    def type(self) -> ResourceTypeEnum:
        """
        :class:`velmar_link.ResourceTypeEnum` of the resource
        """
class VelmarLink:
    """
    Class which manages the connection to the RQ5
    
    This class provides methods for communicating with an RQ5 device and executing jobs.
    Results that may fail are returned as the value or a :class:`velmar_link.ErrorObject`;
    operations that only succeed or fail return an ``ErrorObject``, falsy on success.
    """
    _fields: typing.ClassVar[tuple[str, ...]] = ('connect', 'disconnect', 'id', 'do_job', 'wait_for_job_to_finish', 'cancel_pending_operations', 'get_job_result_data', 'send_stop', 'update_settings', 'get_settings', 'get_connection_status', 'is_connected', 'set_request_timeout', 'get_job_info_list', 'get_job_info', 'get_workstation_info', 'get_workstation_status', 'get_own_connection_info', 'get_ecw_connection_list', 'drop_ecw_connection', 'set_connection_status_callback', 'set_event_handler', 'clear_event_handler', 'check_job_parameters', 'create_resource', 'create_resource_from_file', 'append_to_resource', 'retrieve_resource', 'download_resource_to_file', 'delete_resource', 'get_available_resources', 'get_updated_resource_info', 'set_destination_host', 'set_http_authentication_info', 'set_flag', 'clear_flag', 'test_flag', 'get_library_revision', 'get_supported_protocol_version', 'set_connection_timeout', 'is_ip_address', 'set_max_message_size', 'get_max_message_size')
    @staticmethod
    def _id_of_address(hostname: str, port: str, timeout: datetime.timedelta) -> WorkstationInfo | ErrorObject:
        """
        Query device identification without a persistent connection.
        
        ``link.id(timeout)`` asks the link's workstation: over the connection when the link is
        connected, otherwise over a short-lived connection to the link's address.
        ``VelmarLink.id(hostname, port, timeout)`` asks a workstation by address without a link.
        
        :param timeout: :class:`datetime.timedelta` bounding each step.
        
        :returns: :class:`velmar_link.WorkstationInfo` or :class:`velmar_link.ErrorObject`.
        """
    @staticmethod
    def get_library_revision() -> str:
        """
        The library version string, also the package's ``__version__``.
        
        :returns: the library version string.
        """
    @staticmethod
    def get_supported_protocol_version() -> int:
        """
        The protocol version that this library speaks.
        
        :returns: the protocol version, an ``int``.
        """
    id: _VelmarLinkIdQuery
    @staticmethod
    def is_ip_address(text: str) -> bool:
        """
        True if ``text`` is an IPv4 or IPv6 address.
        
        :param text: the text to check.
        """
    def __init__(self, hostname: str, port: str = '1994', flags: typing.SupportsInt | typing.SupportsIndex = 0, http_user: str = '', http_password: str = '') -> None:
        """
        Create a link; nothing is connected here.
        
        :param hostname: IP address or host name of the RQ5.
        :param port: the port as a string (default "1994").
        :param flags: optional combination of :class:`velmar_link.VelmarLinkConnectionFlags` bits, which
            can be combined with bitwise OR operation.
        :param http_user: user name from the settings.
        :param http_password: password from the settings.
        """
    def _id_of_link(self, timeout: datetime.timedelta) -> WorkstationInfo | ErrorObject:
        """
        Query device identification without a persistent connection.
        
        ``link.id(timeout)`` asks the link's workstation: over the connection when the link is
        connected, otherwise over a short-lived connection to the link's address.
        ``VelmarLink.id(hostname, port, timeout)`` asks a workstation by address without a link.
        
        :param timeout: :class:`datetime.timedelta` bounding each step.
        
        :returns: :class:`velmar_link.WorkstationInfo` or :class:`velmar_link.ErrorObject`.
        """
    def append_to_resource(self, resource: Resource, data: typing_extensions.Buffer) -> ErrorObject:
        """
        Append bytes to a resource.
        
        :param resource: the :class:`velmar_link.Resource`.
        :param data: Data as bytearray (any object supporting the buffer protocol).
        
        :returns: :class:`velmar_link.ErrorObject`, falsy on success.
        """
    def cancel_pending_operations(self) -> None:
        """
        Thread-safe cancellation of all pending client-side operations.
        
        Blocked calls of another thread (``do_job``, ``get_job_result_data``,
        ``wait_for_job_to_finish``, requests) return ``STOPPED_MANUALLY`` at once. The connection stays
        established and jobs already running on the device continue; the owner thread must still call
        :meth:`disconnect`.
        """
    def check_job_parameters(self, job: AbstractMeasurementJob) -> ErrorObject:
        """
        Let the device check the parameters of a job without running it.
        
        :param job: the job.
        
        :returns: :class:`velmar_link.ErrorObject`, falsy if the parameters are valid.
        """
    def clear_event_handler(self, event_handler: VelmarLinkEventHandler) -> None:
        """
        Remove a handler passed to :meth:`set_event_handler` before.
        
        :param event_handler: the :class:`velmar_link.VelmarLinkEventHandler` to remove.
        """
    def clear_flag(self, flag: typing.SupportsInt | typing.SupportsIndex) -> None:
        """
        Clear connection flag bits for the next connect.
        
        :param flag: :class:`velmar_link.VelmarLinkConnectionFlags` bits.
        """
    def connect(self) -> ErrorObject:
        """
        Connect to a running RQ5.
        
        Failures: ``ALREADY_CONNECTED`` when connected, ``CONNECTION_DNS_ERROR``, ``CONNECTION_FAILED``,
        ``UNAUTHORIZED``, ``PROTOCOL_VERSION_MISMATCH``, ... otherwise.
        
        :returns: :class:`velmar_link.ErrorObject`, falsy on success.
        """
    def create_resource(self, type: ResourceTypeEnum, resource_name: str) -> Resource | ErrorObject:
        """
        Create an empty resource.
        
        :param type: :class:`velmar_link.ResourceTypeEnum` of the resource.
        :param resource_name: its name.
        
        :returns: :class:`velmar_link.Resource` or :class:`velmar_link.ErrorObject`.
        """
    def create_resource_from_file(self, type: ResourceTypeEnum, file_name_and_path: os.PathLike | str | bytes, resource_name: str = '') -> Resource | ErrorObject:
        """
        Create a resource holding the content of a file.
        
        :param type: :class:`velmar_link.ResourceTypeEnum` of the resource.
        :param file_name_and_path: the file, ``os.PathLike``, ``str`` or ``bytes``.
        :param resource_name: optional name; the file name when empty.
        
        :returns: :class:`velmar_link.Resource` or :class:`velmar_link.ErrorObject`.
        """
    def delete_resource(self, resource: Resource) -> ErrorObject:
        """
        Delete a resource.
        
        :param resource: the :class:`velmar_link.Resource`.
        
        :returns: :class:`velmar_link.ErrorObject`, falsy on success.
        """
    def disconnect(self) -> None:
        """
        Disconnect from the RQ5.
        
        Jobs can no longer be executed after disconnect has been called. However, data that is
        available in the job objects after the job has been executed remains valid and can still be
        used. The connection-status callback is cleared first; the interpreter lock is released while
        the connection is closed. Call it from the thread that owns the link.
        """
    def do_job(self, job: AbstractMeasurementJob) -> ErrorObject:
        """
        Perform a job and wait until it has finished.
        
        The interpreter lock is released while the job runs.
        
        :param job: the job, a :class:`velmar_link.AbstractMeasurementJob`.
        
        :returns: :class:`velmar_link.ErrorObject`, falsy if the job was successful.
        """
    def download_resource_to_file(self, resource: Resource, file_name_and_path: os.PathLike | str | bytes) -> ErrorObject:
        """
        Download the whole content of a resource into a file.
        
        :param resource: the :class:`velmar_link.Resource`.
        :param file_name_and_path: the file; missing parent directories are created.
        
        :returns: :class:`velmar_link.ErrorObject`, falsy on success.
        """
    def drop_ecw_connection(self, connection_info: WebsocketConnectionInfo) -> ErrorObject:
        """
        Disconnect one WebSocket connection of the device.
        
        :param connection_info: the :class:`velmar_link.WebsocketConnectionInfo` of the connection.
        
        :returns: :class:`velmar_link.ErrorObject`, falsy on success.
        """
    def get_available_resources(self, type: ResourceTypeEnum) -> list[Resource] | ErrorObject:
        """
        List the resources of one type.
        
        :param type: :class:`velmar_link.ResourceTypeEnum`.
        
        :returns: ``list`` of :class:`velmar_link.Resource` or :class:`velmar_link.ErrorObject`.
        """
    def get_connection_status(self) -> VelmarLinkConnectionStatusEnum:
        """
        The connection status of the link.
        
        :returns: the :class:`velmar_link.VelmarLinkConnectionStatusEnum` of the link.
        """
    def get_ecw_connection_list(self) -> list[WebsocketConnectionInfo] | ErrorObject:
        """
        List all active WebSocket connections of the device.
        
        :returns: ``list`` of :class:`velmar_link.WebsocketConnectionInfo` or :class:`velmar_link.ErrorObject`.
        """
    def get_job_info(self, job: AbstractMeasurementJob) -> JobInfo | ErrorObject:
        """
        Ask the device for the current information on a job.
        
        :param job: the job.
        
        :returns: :class:`velmar_link.JobInfo` or :class:`velmar_link.ErrorObject`.
        """
    def get_job_info_list(self, exclude_finished_jobs: bool) -> list[JobInfo] | ErrorObject:
        """
        List the jobs of the device.
        
        :param exclude_finished_jobs: leave out jobs that have finished.
        
        :returns: ``list`` of :class:`velmar_link.JobInfo` or :class:`velmar_link.ErrorObject`.
        """
    def get_job_result_data(self, job: AbstractMeasurementJob) -> DataSet | ErrorObject:
        """
        Download the result data of a job.
        
        Must be used for jobs that return measurement data and online data that have a longer
        duration. The interpreter lock is released during the retrieval.
        
        :param job: the job.
        
        :returns: a :class:`velmar_link.DcDataset` or :class:`velmar_link.EisDataset` or :class:`velmar_link.ErrorObject`.
        """
    def get_max_message_size(self) -> int:
        """
        The largest message that the link accepts.
        
        :returns: the limit in bytes, an ``int``.
        """
    def get_own_connection_info(self) -> WebsocketConnectionInfo | ErrorObject:
        """
        Get information about the own WebSocket connection to the ECW.
        
        :returns: :class:`velmar_link.WebsocketConnectionInfo` or :class:`velmar_link.ErrorObject`.
        """
    def get_settings(self) -> SettingsSet | ErrorObject:
        """
        Get the current device settings.
        
        :returns: :class:`velmar_link.SettingsSet` or :class:`velmar_link.ErrorObject`.
        """
    def get_updated_resource_info(self, resource: Resource) -> ErrorObject:
        """
        Refresh the given resource description in place.
        
        :param resource: the :class:`velmar_link.Resource`.
        
        :returns: :class:`velmar_link.ErrorObject`, falsy on success.
        """
    def get_workstation_info(self) -> WorkstationInfo | ErrorObject:
        """
        Get the identity of the connected RQ5.
        
        :returns: :class:`velmar_link.WorkstationInfo` or :class:`velmar_link.ErrorObject`.
        """
    def get_workstation_status(self) -> WorkstationStatus | ErrorObject:
        """
        Get the status of the connected RQ5.
        
        :returns: :class:`velmar_link.WorkstationStatus` or :class:`velmar_link.ErrorObject`.
        """
    def is_connected(self) -> bool:
        """
        True if the link is connected.
        """
    def retrieve_resource(self, resource: Resource, limit: typing.SupportsInt | typing.SupportsIndex, offset: typing.SupportsInt | typing.SupportsIndex) -> bytes | ErrorObject:
        """
        Read part of a resource's content.
        
        :param resource: the :class:`velmar_link.Resource`.
        :param limit: the number of bytes; 0 means the maximum (``Resource.DATA_CHUNK_SIZE_LIMIT``).
        :param offset: the first byte.
        
        :returns: ``bytes`` or :class:`velmar_link.ErrorObject`.
        """
    def send_stop(self, queue_stop_mode: QueueStopModeEnum) -> None:
        """
        Stop the device.
        
        :param queue_stop_mode: :class:`velmar_link.QueueStopModeEnum`: flush the queued jobs or continue
            with the next one.
        """
    def set_connection_status_callback(self, callback: collections.abc.Callable[[VelmarLinkConnectionStatusEnum], None] | None) -> None:
        """
        Set the callable called on every change of the connection status.
        
        The callable receives a :class:`velmar_link.VelmarLinkConnectionStatusEnum` on the link's I/O
        thread; exceptions it raises are reported as unraisable and do not affect the link.
        
        :param callback: a callable, or ``None`` to clear.
        """
    def set_connection_timeout(self, timeout: datetime.timedelta) -> None:
        """
        Set the time-out of the connection set-up (default 1.5 s).
        
        :param timeout: a :class:`datetime.timedelta`; zero restores the default.
        """
    def set_destination_host(self, hostname: str, port: str) -> None:
        """
        Change the address used by the next connect.
        
        :param hostname: IP address or host name.
        :param port: the port as a string.
        """
    def set_event_handler(self, event_handler: VelmarLinkEventHandler) -> None:
        """
        Register a handler made by a ``VelmarLinkEventHandler.make_*`` factory.
        
        The handler's callback runs on the link's I/O thread for every event of its type, also while
        the calling thread waits in a blocking call such as :meth:`do_job`. One handler per event type:
        registering a different handler for a type that already has one raises (``RuntimeError`` on
        ``VelmarLink``, :class:`velmar_link.VelmarLinkException` on ``VelmarLinkExc``); registering the
        same handler again does nothing.
        
        :param event_handler: a :class:`velmar_link.VelmarLinkEventHandler`.
        
        :raises RuntimeError: if another handler of the type is set.
        """
    def set_flag(self, flag: typing.SupportsInt | typing.SupportsIndex) -> None:
        """
        Set connection flag bits for the next connect.
        
        :param flag: :class:`velmar_link.VelmarLinkConnectionFlags` bits.
        """
    def set_http_authentication_info(self, http_user: str, http_password: str) -> None:
        """
        Change the HTTP credentials used by the next connect.
        
        :param http_user: user name from the settings.
        :param http_password: password from the settings.
        """
    def set_max_message_size(self, size: typing.SupportsInt | typing.SupportsIndex) -> None:
        """
        Set the largest message, text or binary, that the link accepts (default 256 MiB).
        
        A larger binary frame fails the pending download with ``RESOURCE_CONTENT_INVALID``; a larger
        text frame is reported on the standard error stream and dropped. The link stays connected.
        
        :param size: the limit in bytes.
        """
    def set_request_timeout(self, timeout: datetime.timedelta) -> None:
        """
        Set the time-out of every request (default 1 s).
        
        :param timeout: a :class:`datetime.timedelta`; zero restores the default.
        """
    def test_flag(self, flag: typing.SupportsInt | typing.SupportsIndex) -> bool:
        """
        True if all the given flag bits are set.
        
        :param flag: :class:`velmar_link.VelmarLinkConnectionFlags` bits.
        """
    def update_settings(self, settings: SettingsSet) -> None:
        """
        Update device settings.
        
        The outcome of each entry is written into the set passed in: read it with
        :meth:`velmar_link.SettingsSet.all_successfully_updated` and
        :meth:`velmar_link.Setting.get_update_failure_reason`. Without a connection the set is left
        untouched.
        
        :param settings: the :class:`velmar_link.SettingsSet` to send.
        """
    def wait_for_job_to_finish(self, job: AbstractMeasurementJob) -> ErrorObject:
        """
        Wait until a job started earlier has finished (interpreter lock released).
        
        :param job: the job.
        
        :returns: :class:`velmar_link.ErrorObject`, falsy if the job was successful.
        """
class _VelmarLinkIdQuery:
    """
    The ``id`` query of a link class.
    """
    @typing.overload
    def __get__(self, instance: None, owner: type) -> collections.abc.Callable[[str, str, datetime.timedelta], WorkstationInfo | ErrorObject]:
        """
        Read from the class: the query by address.
        """
    @typing.overload
    def __get__(self, instance: VelmarLink, owner: type) -> collections.abc.Callable[[datetime.timedelta], WorkstationInfo | ErrorObject]:
        """
        Read from a link: the query of that link's workstation.
        """
class VelmarLinkExc:
    """
    Variant of VelmarLink which raises :class:`velmar_link.VelmarLinkException` on errors for all methods.
    
    Results are returned plain; ``do_job`` and ``wait_for_job_to_finish`` return the falsy
    :class:`velmar_link.ErrorObject` on success and raise on failure unless the failing code was
    passed to :meth:`suppress_do_job_exception`.
    """
    _fields: typing.ClassVar[tuple[str, ...]] = ('connect', 'disconnect', 'id', 'do_job', 'wait_for_job_to_finish', 'cancel_pending_operations', 'get_job_result_data', 'send_stop', 'update_settings', 'get_settings', 'get_connection_status', 'is_connected', 'set_request_timeout', 'get_job_info_list', 'get_job_info', 'get_workstation_info', 'get_workstation_status', 'get_own_connection_info', 'get_ecw_connection_list', 'drop_ecw_connection', 'set_connection_status_callback', 'set_event_handler', 'clear_event_handler', 'check_job_parameters', 'create_resource', 'create_resource_from_file', 'append_to_resource', 'retrieve_resource', 'download_resource_to_file', 'delete_resource', 'get_available_resources', 'get_updated_resource_info', 'set_destination_host', 'set_http_authentication_info', 'set_flag', 'clear_flag', 'test_flag', 'get_library_revision', 'get_supported_protocol_version', 'suppress_do_job_exception', 'enable_do_job_exception', 'is_do_job_exception_suppressed', 'set_connection_timeout', 'is_ip_address', 'set_max_message_size', 'get_max_message_size')
    @staticmethod
    def _id_of_address(hostname: str, port: str, timeout: datetime.timedelta) -> WorkstationInfo:
        """
        Query device identification without a persistent connection.
        
        ``link.id(timeout)`` asks the link's workstation: over the connection when the link is
        connected, otherwise over a short-lived connection to the link's address.
        ``VelmarLink.id(hostname, port, timeout)`` asks a workstation by address without a link.
        
        :param timeout: :class:`datetime.timedelta` bounding each step.
        
        :returns: :class:`velmar_link.WorkstationInfo`.
        :raises velmar_link.VelmarLinkException: on failure.
        """
    @staticmethod
    def get_library_revision() -> str:
        """
        The library version string, also the package's ``__version__``.
        
        :returns: the library version string.
        """
    @staticmethod
    def get_supported_protocol_version() -> int:
        """
        The protocol version that this library speaks.
        
        :returns: the protocol version, an ``int``.
        """
    id: _VelmarLinkExcIdQuery
    @staticmethod
    def is_ip_address(text: str) -> bool:
        """
        True if ``text`` is an IPv4 or IPv6 address.
        
        :param text: the text to check.
        """
    def __init__(self, hostname: str, port: str = '1994', flags: typing.SupportsInt | typing.SupportsIndex = 0, http_user: str = '', http_password: str = '') -> None:
        """
        Create a link; nothing is connected here.
        
        :param hostname: IP address or host name of the RQ5.
        :param port: the port as a string (default "1994").
        :param flags: optional combination of :class:`velmar_link.VelmarLinkConnectionFlags` bits, which
            can be combined with bitwise OR operation.
        :param http_user: user name from the settings.
        :param http_password: password from the settings.
        """
    def _id_of_link(self, timeout: datetime.timedelta) -> WorkstationInfo:
        """
        Query device identification without a persistent connection.
        
        ``link.id(timeout)`` asks the link's workstation: over the connection when the link is
        connected, otherwise over a short-lived connection to the link's address.
        ``VelmarLink.id(hostname, port, timeout)`` asks a workstation by address without a link.
        
        :param timeout: :class:`datetime.timedelta` bounding each step.
        
        :returns: :class:`velmar_link.WorkstationInfo`.
        :raises velmar_link.VelmarLinkException: on failure.
        """
    def append_to_resource(self, resource: Resource, data: typing_extensions.Buffer) -> None:
        """
        Append bytes to a resource.
        
        :param resource: the :class:`velmar_link.Resource`.
        :param data: Data as bytearray (any object supporting the buffer protocol).
        
        :raises velmar_link.VelmarLinkException: on failure.
        """
    def cancel_pending_operations(self) -> None:
        """
        Thread-safe cancellation of all pending client-side operations.
        
        Blocked calls of another thread (``do_job``, ``get_job_result_data``,
        ``wait_for_job_to_finish``, requests) return ``STOPPED_MANUALLY`` at once. The connection stays
        established and jobs already running on the device continue; the owner thread must still call
        :meth:`disconnect`.
        """
    def check_job_parameters(self, job: AbstractMeasurementJob) -> None:
        """
        Let the device check the parameters of a job without running it.
        
        :param job: the job.
        
        :raises velmar_link.VelmarLinkException: if the parameters are invalid.
        """
    def clear_event_handler(self, event_handler: VelmarLinkEventHandler) -> None:
        """
        Remove a handler passed to :meth:`set_event_handler` before.
        
        :param event_handler: the :class:`velmar_link.VelmarLinkEventHandler` to remove.
        """
    def clear_flag(self, flag: typing.SupportsInt | typing.SupportsIndex) -> None:
        """
        Clear connection flag bits for the next connect.
        
        :param flag: :class:`velmar_link.VelmarLinkConnectionFlags` bits.
        """
    def connect(self) -> None:
        """
        Connect to a running RQ5.
        
        Failures: ``ALREADY_CONNECTED`` when connected, ``CONNECTION_DNS_ERROR``, ``CONNECTION_FAILED``,
        ``UNAUTHORIZED``, ``PROTOCOL_VERSION_MISMATCH``, ... otherwise.
        
        :raises velmar_link.VelmarLinkException: if the connection failed.
        """
    def create_resource(self, type: ResourceTypeEnum, resource_name: str) -> Resource:
        """
        Create an empty resource.
        
        :param type: :class:`velmar_link.ResourceTypeEnum` of the resource.
        :param resource_name: its name.
        
        :returns: :class:`velmar_link.Resource`.
        :raises velmar_link.VelmarLinkException: on failure.
        """
    def create_resource_from_file(self, type: ResourceTypeEnum, file_name_and_path: os.PathLike | str | bytes, resource_name: str = '') -> Resource:
        """
        Create a resource holding the content of a file.
        
        :param type: :class:`velmar_link.ResourceTypeEnum` of the resource.
        :param file_name_and_path: the file, ``os.PathLike``, ``str`` or ``bytes``.
        :param resource_name: optional name; the file name when empty.
        
        :returns: :class:`velmar_link.Resource`.
        :raises velmar_link.VelmarLinkException: on failure.
        """
    def delete_resource(self, resource: Resource) -> None:
        """
        Delete a resource.
        
        :param resource: the :class:`velmar_link.Resource`.
        
        :raises velmar_link.VelmarLinkException: on failure.
        """
    def disconnect(self) -> None:
        """
        Disconnect from the RQ5.
        
        Jobs can no longer be executed after disconnect has been called. However, data that is
        available in the job objects after the job has been executed remains valid and can still be
        used. The connection-status callback is cleared first; the interpreter lock is released while
        the connection is closed. Call it from the thread that owns the link.
        """
    def do_job(self, job: AbstractMeasurementJob) -> ErrorObject:
        """
        Perform a job and wait until it has finished.
        
        The interpreter lock is released while the job runs.
        
        :param job: the job, a :class:`velmar_link.AbstractMeasurementJob`.
        
        :returns: the falsy :class:`velmar_link.ErrorObject`, or the error of a code passed to :meth:`suppress_do_job_exception`.
        :raises velmar_link.VelmarLinkException: if the job failed and its code is not suppressed.
        """
    def download_resource_to_file(self, resource: Resource, file_name_and_path: os.PathLike | str | bytes) -> None:
        """
        Download the whole content of a resource into a file.
        
        :param resource: the :class:`velmar_link.Resource`.
        :param file_name_and_path: the file; missing parent directories are created.
        
        :raises velmar_link.VelmarLinkException: on failure.
        """
    def drop_ecw_connection(self, connection_info: WebsocketConnectionInfo) -> None:
        """
        Disconnect one WebSocket connection of the device.
        
        :param connection_info: the :class:`velmar_link.WebsocketConnectionInfo` of the connection.
        
        :raises velmar_link.VelmarLinkException: if the operation failed.
        """
    def enable_do_job_exception(self, code: ErrorCodeEnum) -> None:
        """
        Undo :meth:`suppress_do_job_exception` for this code.
        
        :param code: the :class:`velmar_link.ErrorCodeEnum`.
        """
    def get_available_resources(self, type: ResourceTypeEnum) -> list[Resource]:
        """
        List the resources of one type.
        
        :param type: :class:`velmar_link.ResourceTypeEnum`.
        
        :returns: ``list`` of :class:`velmar_link.Resource`.
        :raises velmar_link.VelmarLinkException: on failure.
        """
    def get_connection_status(self) -> VelmarLinkConnectionStatusEnum:
        """
        The connection status of the link.
        
        :returns: the :class:`velmar_link.VelmarLinkConnectionStatusEnum` of the link.
        """
    def get_ecw_connection_list(self) -> list[WebsocketConnectionInfo]:
        """
        List all active WebSocket connections of the device.
        
        :returns: ``list`` of :class:`velmar_link.WebsocketConnectionInfo`.
        :raises velmar_link.VelmarLinkException: on failure.
        """
    def get_job_info(self, job: AbstractMeasurementJob) -> JobInfo:
        """
        Ask the device for the current information on a job.
        
        :param job: the job.
        
        :returns: :class:`velmar_link.JobInfo`.
        :raises velmar_link.VelmarLinkException: on failure.
        """
    def get_job_info_list(self, exclude_finished_jobs: bool) -> list[JobInfo]:
        """
        List the jobs of the device.
        
        :param exclude_finished_jobs: leave out jobs that have finished.
        
        :returns: ``list`` of :class:`velmar_link.JobInfo`.
        :raises velmar_link.VelmarLinkException: on failure.
        """
    def get_job_result_data(self, job: AbstractMeasurementJob) -> DataSet:
        """
        Download the result data of a job.
        
        Must be used for jobs that return measurement data and online data that have a longer
        duration. The interpreter lock is released during the retrieval.
        
        :param job: the job.
        
        :returns: a :class:`velmar_link.DcDataset` or :class:`velmar_link.EisDataset`.
        :raises velmar_link.VelmarLinkException: if retrieval failed or job did not finish successfully.
        """
    def get_max_message_size(self) -> int:
        """
        The largest message that the link accepts.
        
        :returns: the limit in bytes, an ``int``.
        """
    def get_own_connection_info(self) -> WebsocketConnectionInfo:
        """
        Get information about the own WebSocket connection to the ECW.
        
        :returns: :class:`velmar_link.WebsocketConnectionInfo`.
        :raises velmar_link.VelmarLinkException: on failure.
        """
    def get_settings(self) -> SettingsSet:
        """
        Get the current device settings.
        
        :returns: :class:`velmar_link.SettingsSet`.
        :raises velmar_link.VelmarLinkException: on failure.
        """
    def get_updated_resource_info(self, resource: Resource) -> None:
        """
        Refresh the given resource description in place.
        
        :param resource: the :class:`velmar_link.Resource`.
        
        :raises velmar_link.VelmarLinkException: on failure.
        """
    def get_workstation_info(self) -> WorkstationInfo:
        """
        Get the identity of the connected RQ5.
        
        :returns: :class:`velmar_link.WorkstationInfo`.
        :raises velmar_link.VelmarLinkException: on failure.
        """
    def get_workstation_status(self) -> WorkstationStatus:
        """
        Get the status of the connected RQ5.
        
        :returns: :class:`velmar_link.WorkstationStatus`.
        :raises velmar_link.VelmarLinkException: on failure.
        """
    def is_connected(self) -> bool:
        """
        True if the link is connected.
        """
    def is_do_job_exception_suppressed(self, code: ErrorCodeEnum) -> bool:
        """
        True if ``do_job`` returns instead of raising for this code.
        
        :param code: the :class:`velmar_link.ErrorCodeEnum`.
        """
    def retrieve_resource(self, resource: Resource, limit: typing.SupportsInt | typing.SupportsIndex, offset: typing.SupportsInt | typing.SupportsIndex) -> bytes:
        """
        Read part of a resource's content.
        
        :param resource: the :class:`velmar_link.Resource`.
        :param limit: the number of bytes; 0 means the maximum (``Resource.DATA_CHUNK_SIZE_LIMIT``).
        :param offset: the first byte.
        
        :returns: ``bytes``.
        :raises velmar_link.VelmarLinkException: on failure.
        """
    def send_stop(self, queue_stop_mode: QueueStopModeEnum) -> None:
        """
        Stop the device.
        
        :param queue_stop_mode: :class:`velmar_link.QueueStopModeEnum`: flush the queued jobs or continue
            with the next one.
        """
    def set_connection_status_callback(self, callback: collections.abc.Callable[[VelmarLinkConnectionStatusEnum], None] | None) -> None:
        """
        Set the callable called on every change of the connection status.
        
        The callable receives a :class:`velmar_link.VelmarLinkConnectionStatusEnum` on the link's I/O
        thread; exceptions it raises are reported as unraisable and do not affect the link.
        
        :param callback: a callable, or ``None`` to clear.
        """
    def set_connection_timeout(self, timeout: datetime.timedelta) -> None:
        """
        Set the time-out of the connection set-up (default 1.5 s).
        
        :param timeout: a :class:`datetime.timedelta`; zero restores the default.
        """
    def set_destination_host(self, hostname: str, port: str) -> None:
        """
        Change the address used by the next connect.
        
        :param hostname: IP address or host name.
        :param port: the port as a string.
        """
    def set_event_handler(self, event_handler: VelmarLinkEventHandler) -> None:
        """
        Register a handler made by a ``VelmarLinkEventHandler.make_*`` factory.
        
        The handler's callback runs on the link's I/O thread for every event of its type, also while
        the calling thread waits in a blocking call such as :meth:`do_job`. One handler per event type:
        registering a different handler for a type that already has one raises (``RuntimeError`` on
        ``VelmarLink``, :class:`velmar_link.VelmarLinkException` on ``VelmarLinkExc``); registering the
        same handler again does nothing.
        
        :param event_handler: a :class:`velmar_link.VelmarLinkEventHandler`.
        
        :raises velmar_link.VelmarLinkException: if another handler of the type is set.
        """
    def set_flag(self, flag: typing.SupportsInt | typing.SupportsIndex) -> None:
        """
        Set connection flag bits for the next connect.
        
        :param flag: :class:`velmar_link.VelmarLinkConnectionFlags` bits.
        """
    def set_http_authentication_info(self, http_user: str, http_password: str) -> None:
        """
        Change the HTTP credentials used by the next connect.
        
        :param http_user: user name from the settings.
        :param http_password: password from the settings.
        """
    def set_max_message_size(self, size: typing.SupportsInt | typing.SupportsIndex) -> None:
        """
        Set the largest message, text or binary, that the link accepts (default 256 MiB).
        
        A larger binary frame fails the pending download with ``RESOURCE_CONTENT_INVALID``; a larger
        text frame is reported on the standard error stream and dropped. The link stays connected.
        
        :param size: the limit in bytes.
        """
    def set_request_timeout(self, timeout: datetime.timedelta) -> None:
        """
        Set the time-out of every request (default 1 s).
        
        :param timeout: a :class:`datetime.timedelta`; zero restores the default.
        """
    def suppress_do_job_exception(self, code: ErrorCodeEnum) -> None:
        """
        Let ``do_job`` return the :class:`velmar_link.ErrorObject` for this code instead of raising.
        
        :param code: the :class:`velmar_link.ErrorCodeEnum`.
        """
    def test_flag(self, flag: typing.SupportsInt | typing.SupportsIndex) -> bool:
        """
        True if all the given flag bits are set.
        
        :param flag: :class:`velmar_link.VelmarLinkConnectionFlags` bits.
        """
    def update_settings(self, settings: SettingsSet) -> None:
        """
        Update device settings.
        
        The outcome of each entry is written into the set passed in: read it with
        :meth:`velmar_link.SettingsSet.all_successfully_updated` and
        :meth:`velmar_link.Setting.get_update_failure_reason`. Without a connection the set is left
        untouched.
        
        :param settings: the :class:`velmar_link.SettingsSet` to send.
        
        :raises velmar_link.VelmarLinkException: if the request failed.
        """
    def wait_for_job_to_finish(self, job: AbstractMeasurementJob) -> ErrorObject:
        """
        Wait until a job started earlier has finished (interpreter lock released).
        
        :param job: the job.
        
        :returns: the falsy :class:`velmar_link.ErrorObject`, or the error of a code passed to :meth:`suppress_do_job_exception`.
        :raises velmar_link.VelmarLinkException: if the job failed and its code is not suppressed.
        """
class _VelmarLinkExcIdQuery:
    """
    The ``id`` query of a link class.
    """
    @typing.overload
    def __get__(self, instance: None, owner: type) -> collections.abc.Callable[[str, str, datetime.timedelta], WorkstationInfo]:
        """
        Read from the class: the query by address.
        """
    @typing.overload
    def __get__(self, instance: VelmarLinkExc, owner: type) -> collections.abc.Callable[[datetime.timedelta], WorkstationInfo]:
        """
        Read from a link: the query of that link's workstation.
        """
def add(a: typing.SupportsInt | typing.SupportsIndex, b: typing.SupportsInt | typing.SupportsIndex) -> int:
    """
    A function which tests the binding between the native library and the interpreter.
    """
def factorial(n: typing.SupportsInt | typing.SupportsIndex) -> int:
    """
    A function which tests the binding between the native library and the interpreter.
    """
__version__: str = '26.40.0+23251aaf'
