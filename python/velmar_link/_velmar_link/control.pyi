"""
Submodule with control jobs.
"""
from __future__ import annotations
import collections.abc
import typing
import velmar_link._velmar_link
__all__: list[str] = ['AdcStateInfo', 'BeepJob', 'BeepParametersPy', 'GetAdcStateJob', 'GetAdcStateParametersPy', 'GetDateTimeJob', 'GetHardwareInfoJob', 'GetHardwarePropertyJob', 'GetHardwarePropertyParametersPy', 'GetHardwareSettingsJob', 'GetPotentiostatStateJob', 'GetPotentiostatStateParametersPy', 'InitializeRtcJob', 'MeasureIntegralJob', 'MeasureIntegralParametersPy', 'PotentiostatState', 'RebootJob', 'ReenumerateHardwareJob', 'SetActiveCurrentRangesJob', 'SetActiveCurrentRangesParametersPy', 'SetActiveGainsJob', 'SetActiveGainsParametersPy', 'SetBiasJob', 'SetBiasParametersPy', 'SetCableOptionsJob', 'SetCableOptionsParametersPy', 'SetDateTimeJob', 'SetDateTimeParametersPy', 'SetFirmwareUpdateJob', 'SetFirmwareUpdateParametersPy', 'SetHardwarePropertyJob', 'SetHardwarePropertyParametersPy', 'SetHardwareSettingsJob', 'SetHardwareSettingsParametersPy', 'SetLedColorJob', 'SetLedColorParametersPy', 'SetVoltageRangeJob', 'SetVoltageRangeParametersPy', 'SleepJob', 'SleepParametersPy', 'SwitchAllOffJob', 'SwitchOffJob', 'SwitchOffParametersPy', 'SwitchOnJob', 'SwitchOnParametersPy', 'SwitchOnQuickJob', 'SwitchOnQuickParametersPy']
class AdcStateInfo:
    """
    The state of an ADC as reported by the RQ5.
    """
    @property
    def active_gain_indexes(self) -> list[int]:
        """
        list of gain indexes active during measurements
        """
class PotentiostatState:
    """
    The state of a potentiostat as reported by the RQ5.
    """
    @property
    def active_bandwidth_indexes(self) -> list[int]:
        """
        indexes of the active bandwidths
        """
    @property
    def active_current_range_indexes(self) -> list[int]:
        """
        indexes of the active current ranges
        """
    @property
    def autocompensation_on(self) -> bool:
        """
        True if the autocompensation is on (usually True)
        """
    @property
    def bandwidth_index(self) -> int:
        """
        index of the bandwidth
        """
    @property
    def compliance_range_index(self) -> int:
        """
        index of the compliance range
        """
    @property
    def coupling(self) -> velmar_link._velmar_link.PotentiostatCoupling:
        """
        the :class:`velmar_link.PotentiostatCoupling`
        """
    @property
    def current_range_index(self) -> int:
        """
        index of the current range
        """
    @property
    def current_range_integration_time(self) -> float:
        """
        integration time of the ranging process
        """
    @property
    def current_range_relaxation_time(self) -> float:
        """
        relaxation time of the ranging process
        """
    @property
    def dc_value(self) -> float:
        """
        the DC value that the potentiostat outputs
        """
    @property
    def switched_on(self) -> bool:
        """
        True if the potentiostat is switched on
        """
    @property
    def voltage_range_index(self) -> int:
        """
        index of the voltage range
        """
class BeepParametersPy:
    """
    Parameters of :class:`velmar_link._velmar_link.control.BeepJob`.
    """
    def __copy__(self) -> BeepParametersPy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> BeepParametersPy:
        """
        An independent copy.
        """
    def __init__(self, frequency: typing.SupportsFloat | typing.SupportsIndex = 1000.0, duration: typing.SupportsFloat | typing.SupportsIndex = 0.2) -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def duration(self) -> float:
        """
        The "duration" value (the key of the same name on the wire).
        """
    @duration.setter
    def duration(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def frequency(self) -> float:
        """
        The "frequency" value (the key of the same name on the wire).
        """
    @frequency.setter
    def frequency(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
class BeepJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Let the RQ5 beep.
    
    frequency in Hz, duration in seconds.
    
    :param frequency: the "frequency" parameter of the request
    :param duration: the "duration" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "beep",
                    "parameters": {
                        "frequency": 1000.0,
                        "duration": 0.2
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, frequency: typing.SupportsFloat | typing.SupportsIndex = 1000.0, duration: typing.SupportsFloat | typing.SupportsIndex = 0.2) -> None:
        """
        Create the job from its parameters.
        """
    @property
    def parameters(self) -> BeepParametersPy:
        """
        An object with the parameters that were passed to the constructor.
        """
class SleepParametersPy:
    """
    Parameters of :class:`velmar_link._velmar_link.control.SleepJob`.
    """
    def __copy__(self) -> SleepParametersPy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> SleepParametersPy:
        """
        An independent copy.
        """
    def __init__(self, duration: typing.SupportsFloat | typing.SupportsIndex = 1.0) -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def duration(self) -> float:
        """
        The "duration" value (the key of the same name on the wire).
        """
    @duration.setter
    def duration(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
class SleepJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Pause the job queue for the given duration in seconds.
    
    :param duration: the "duration" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "sleep",
                    "parameters": {
                        "duration": 1.0
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, duration: typing.SupportsFloat | typing.SupportsIndex = 1.0) -> None:
        """
        Create the job from its parameters.
        """
    @property
    def parameters(self) -> SleepParametersPy:
        """
        An object with the parameters that were passed to the constructor.
        """
class SetLedColorParametersPy:
    """
    Parameters of :class:`velmar_link._velmar_link.control.SetLedColorJob`.
    """
    def __copy__(self) -> SetLedColorParametersPy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> SetLedColorParametersPy:
        """
        An independent copy.
        """
    def __init__(self, red: typing.SupportsInt | typing.SupportsIndex = 0, green: typing.SupportsInt | typing.SupportsIndex = 0, blue: typing.SupportsInt | typing.SupportsIndex = 0) -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def blue(self) -> int:
        """
        The "blue" value (the key of the same name on the wire).
        """
    @blue.setter
    def blue(self, arg0: typing.SupportsInt | typing.SupportsIndex) -> None:
        ...
    @property
    def green(self) -> int:
        """
        The "green" value (the key of the same name on the wire).
        """
    @green.setter
    def green(self, arg0: typing.SupportsInt | typing.SupportsIndex) -> None:
        ...
    @property
    def red(self) -> int:
        """
        The "red" value (the key of the same name on the wire).
        """
    @red.setter
    def red(self, arg0: typing.SupportsInt | typing.SupportsIndex) -> None:
        ...
class SetLedColorJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Set the color of the LED. Only the lower RGB LED can be set.
    
    Either one color value (0xFF0000 red, 0x00FF00 green, 0x0000FF blue) or red, green and blue from 0 to 255.
    
    :param red: the "red" parameter of the request
    :param green: the "green" parameter of the request
    :param blue: the "blue" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "set_led_color",
                    "parameters": {
                        "red": 0,
                        "green": 0,
                        "blue": 0
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    @typing.overload
    def __init__(self, led: typing.SupportsInt | typing.SupportsIndex) -> None:
        """
        Create the job from one color value: 0xFF0000 red, 0x00FF00 green, 0x0000FF blue.
        
        :param led: the color as integer
        """
    @typing.overload
    def __init__(self, red: typing.SupportsInt | typing.SupportsIndex = 0, green: typing.SupportsInt | typing.SupportsIndex = 0, blue: typing.SupportsInt | typing.SupportsIndex = 0) -> None:
        """
        Create the job from red, green and blue, each 0 to 255.
        """
    @property
    def parameters(self) -> SetLedColorParametersPy:
        """
        An object with the parameters that were passed to the constructor.
        """
class SwitchOnParametersPy:
    """
    Parameters of :class:`velmar_link._velmar_link.control.SwitchOnJob`.
    """
    def __copy__(self) -> SwitchOnParametersPy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> SwitchOnParametersPy:
        """
        An independent copy.
        """
    def __init__(self, potentiostat: str = 'MAIN:1:POT', coupling: velmar_link._velmar_link.PotentiostatCoupling = velmar_link._velmar_link.PotentiostatCoupling.POTENTIOSTATIC, bias: typing.SupportsFloat | typing.SupportsIndex = 0.0, voltage_range_index: typing.SupportsInt | typing.SupportsIndex = 0, compliance_range_index: typing.SupportsInt | typing.SupportsIndex = 0) -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def bias(self) -> float:
        """
        The "bias" value (the key of the same name on the wire).
        """
    @bias.setter
    def bias(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def compliance_range_index(self) -> int:
        """
        The "compliance_range_index" value (the key of the same name on the wire).
        """
    @compliance_range_index.setter
    def compliance_range_index(self, arg0: typing.SupportsInt | typing.SupportsIndex) -> None:
        ...
    @property
    def coupling(self) -> velmar_link._velmar_link.PotentiostatCoupling:
        """
        The "coupling" value (the key of the same name on the wire).
        """
    @coupling.setter
    def coupling(self, arg0: velmar_link._velmar_link.PotentiostatCoupling) -> None:
        ...
    @property
    def potentiostat(self) -> str:
        """
        The "potentiostat" value (the key of the same name on the wire).
        """
    @potentiostat.setter
    def potentiostat(self, arg0: str) -> None:
        ...
    @property
    def voltage_range_index(self) -> int:
        """
        The "voltage_range_index" value (the key of the same name on the wire).
        """
    @voltage_range_index.setter
    def voltage_range_index(self, arg0: typing.SupportsInt | typing.SupportsIndex) -> None:
        ...
class SwitchOnJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Switch a potentiostat on; :meth:`get_job_result` returns the :class:`velmar_link.SwitchOnInfo`.
    
    The potentiostat is given as resource path, for example "MAIN:1:POT" or "QLC:1:EXT2:POT".
    
    :param potentiostat: the "potentiostat" parameter of the request
    :param coupling: the "coupling" parameter of the request
    :param bias: the "bias" parameter of the request
    :param voltage_range_index: the "voltage_range_index" parameter of the request
    :param compliance_range_index: the "compliance_range_index" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "switch_on",
                    "parameters": {
                        "potentiostat": "MAIN:1:POT",
                        "coupling": "POTENTIOSTATIC",
                        "bias": 0.0,
                        "voltage_range_index": 0,
                        "compliance_range_index": 0
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, potentiostat: str = 'MAIN:1:POT', coupling: velmar_link._velmar_link.PotentiostatCoupling = velmar_link._velmar_link.PotentiostatCoupling.POTENTIOSTATIC, bias: typing.SupportsFloat | typing.SupportsIndex = 0.0, voltage_range_index: typing.SupportsInt | typing.SupportsIndex = 0, compliance_range_index: typing.SupportsInt | typing.SupportsIndex = 0) -> None:
        """
        Create the job from its parameters.
        """
    def get_job_result(self) -> velmar_link._velmar_link.SwitchOnInfo:
        """
        The result of the last run; meaningful only when the job was successful.
        """
    @property
    def parameters(self) -> SwitchOnParametersPy:
        """
        An object with the parameters that were passed to the constructor.
        """
class SwitchOnQuickParametersPy:
    """
    Parameters of :class:`velmar_link._velmar_link.control.SwitchOnQuickJob`.
    """
    def __copy__(self) -> SwitchOnQuickParametersPy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> SwitchOnQuickParametersPy:
        """
        An independent copy.
        """
    def __init__(self, potentiostat: str = 'MAIN:1:POT', coupling: velmar_link._velmar_link.PotentiostatCoupling = velmar_link._velmar_link.PotentiostatCoupling.POTENTIOSTATIC, bias: typing.SupportsFloat | typing.SupportsIndex = 0.0, voltage_range_index: typing.SupportsInt | typing.SupportsIndex = 0, compliance_range_index: typing.SupportsInt | typing.SupportsIndex = 0) -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def bias(self) -> float:
        """
        The "bias" value (the key of the same name on the wire).
        """
    @bias.setter
    def bias(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def compliance_range_index(self) -> int:
        """
        The "compliance_range_index" value (the key of the same name on the wire).
        """
    @compliance_range_index.setter
    def compliance_range_index(self, arg0: typing.SupportsInt | typing.SupportsIndex) -> None:
        ...
    @property
    def coupling(self) -> velmar_link._velmar_link.PotentiostatCoupling:
        """
        The "coupling" value (the key of the same name on the wire).
        """
    @coupling.setter
    def coupling(self, arg0: velmar_link._velmar_link.PotentiostatCoupling) -> None:
        ...
    @property
    def potentiostat(self) -> str:
        """
        The "potentiostat" value (the key of the same name on the wire).
        """
    @potentiostat.setter
    def potentiostat(self, arg0: str) -> None:
        ...
    @property
    def voltage_range_index(self) -> int:
        """
        The "voltage_range_index" value (the key of the same name on the wire).
        """
    @voltage_range_index.setter
    def voltage_range_index(self, arg0: typing.SupportsInt | typing.SupportsIndex) -> None:
        ...
class SwitchOnQuickJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Switch a potentiostat on without reporting the applied values.
    
    The potentiostat is given as resource path, for example "MAIN:1:POT" or "QLC:1:EXT2:POT".
    
    :param potentiostat: the "potentiostat" parameter of the request
    :param coupling: the "coupling" parameter of the request
    :param bias: the "bias" parameter of the request
    :param voltage_range_index: the "voltage_range_index" parameter of the request
    :param compliance_range_index: the "compliance_range_index" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "switch_on_quick",
                    "parameters": {
                        "potentiostat": "MAIN:1:POT",
                        "coupling": "POTENTIOSTATIC",
                        "bias": 0.0,
                        "voltage_range_index": 0,
                        "compliance_range_index": 0
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, potentiostat: str = 'MAIN:1:POT', coupling: velmar_link._velmar_link.PotentiostatCoupling = velmar_link._velmar_link.PotentiostatCoupling.POTENTIOSTATIC, bias: typing.SupportsFloat | typing.SupportsIndex = 0.0, voltage_range_index: typing.SupportsInt | typing.SupportsIndex = 0, compliance_range_index: typing.SupportsInt | typing.SupportsIndex = 0) -> None:
        """
        Create the job from its parameters.
        """
    @property
    def parameters(self) -> SwitchOnQuickParametersPy:
        """
        An object with the parameters that were passed to the constructor.
        """
class SwitchOffParametersPy:
    """
    Parameters of :class:`velmar_link._velmar_link.control.SwitchOffJob`.
    """
    def __copy__(self) -> SwitchOffParametersPy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> SwitchOffParametersPy:
        """
        An independent copy.
        """
    def __init__(self, potentiostat: str = 'MAIN:1:POT') -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def potentiostat(self) -> str:
        """
        The "potentiostat" value (the key of the same name on the wire).
        """
    @potentiostat.setter
    def potentiostat(self, arg0: str) -> None:
        ...
class SwitchOffJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Switch a potentiostat off.
    
    The potentiostat is given as resource path, for example "MAIN:1:POT" or "QLC:1:EXT2:POT".
    
    :param potentiostat: the "potentiostat" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "switch_off",
                    "parameters": {
                        "potentiostat": "MAIN:1:POT"
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, potentiostat: str = 'MAIN:1:POT') -> None:
        """
        Create the job from its parameters.
        """
    @property
    def parameters(self) -> SwitchOffParametersPy:
        """
        An object with the parameters that were passed to the constructor.
        """
class SwitchAllOffJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Switch every potentiostat off.
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "switch_all_off",
                    "parameters": {},
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self) -> None:
        """
        Create the job from its parameters.
        """
class SetBiasParametersPy:
    """
    Parameters of :class:`velmar_link._velmar_link.control.SetBiasJob`.
    """
    def __copy__(self) -> SetBiasParametersPy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> SetBiasParametersPy:
        """
        An independent copy.
        """
    def __init__(self, potentiostat: str = 'MAIN:1:POT', bias: typing.SupportsFloat | typing.SupportsIndex = 0.0) -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def bias(self) -> float:
        """
        The "bias" value (the key of the same name on the wire).
        """
    @bias.setter
    def bias(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def potentiostat(self) -> str:
        """
        The "potentiostat" value (the key of the same name on the wire).
        """
    @potentiostat.setter
    def potentiostat(self, arg0: str) -> None:
        ...
class SetBiasJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Set the DC bias of a switched-on potentiostat.
    
    The potentiostat is given as resource path, for example "MAIN:1:POT" or "QLC:1:EXT2:POT".
    
    :param potentiostat: the "potentiostat" parameter of the request
    :param bias: the "bias" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "set_bias",
                    "parameters": {
                        "potentiostat": "MAIN:1:POT",
                        "bias": 0.0
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, potentiostat: str = 'MAIN:1:POT', bias: typing.SupportsFloat | typing.SupportsIndex = 0.0) -> None:
        """
        Create the job from its parameters.
        """
    @property
    def parameters(self) -> SetBiasParametersPy:
        """
        An object with the parameters that were passed to the constructor.
        """
class SetVoltageRangeParametersPy:
    """
    Parameters of :class:`velmar_link._velmar_link.control.SetVoltageRangeJob`.
    """
    def __copy__(self) -> SetVoltageRangeParametersPy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> SetVoltageRangeParametersPy:
        """
        An independent copy.
        """
    def __init__(self, potentiostat: str = 'MAIN:1:POT', index: typing.SupportsInt | typing.SupportsIndex = 0) -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def index(self) -> int:
        """
        The "index" value (the key of the same name on the wire).
        """
    @index.setter
    def index(self, arg0: typing.SupportsInt | typing.SupportsIndex) -> None:
        ...
    @property
    def potentiostat(self) -> str:
        """
        The "potentiostat" value (the key of the same name on the wire).
        """
    @potentiostat.setter
    def potentiostat(self, arg0: str) -> None:
        ...
class SetVoltageRangeJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Select the voltage range (0 = smallest). Applies only while the potentiostat is off; the RQ5 refuses it otherwise.
    
    The potentiostat is given as resource path, for example "MAIN:1:POT" or "QLC:1:EXT2:POT".
    
    :param potentiostat: the "potentiostat" parameter of the request
    :param index: the "index" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "set_voltage_range",
                    "parameters": {
                        "potentiostat": "MAIN:1:POT",
                        "index": 0
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, potentiostat: str = 'MAIN:1:POT', index: typing.SupportsInt | typing.SupportsIndex = 0) -> None:
        """
        Create the job from its parameters.
        """
    @property
    def parameters(self) -> SetVoltageRangeParametersPy:
        """
        An object with the parameters that were passed to the constructor.
        """
class SetActiveGainsParametersPy:
    """
    Parameters of :class:`velmar_link._velmar_link.control.SetActiveGainsJob`.
    """
    def __copy__(self) -> SetActiveGainsParametersPy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> SetActiveGainsParametersPy:
        """
        An independent copy.
        """
    def __init__(self, adc: str = '', indexes: collections.abc.Sequence[typing.SupportsInt | typing.SupportsIndex] = []) -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def adc(self) -> str:
        """
        The "adc" value (the key of the same name on the wire).
        """
    @adc.setter
    def adc(self, arg0: str) -> None:
        ...
    @property
    def indexes(self) -> list[int]:
        """
        The "indexes" value (the key of the same name on the wire).
        """
    @indexes.setter
    def indexes(self, arg0: collections.abc.Sequence[typing.SupportsInt | typing.SupportsIndex]) -> None:
        ...
class SetActiveGainsJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Select the gains of an ADC that are active during measurements.
    
    :param adc: the "adc" parameter of the request
    :param indexes: the "indexes" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "set_active_gains",
                    "parameters": {
                        "adc": "",
                        "indexes": []
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, adc: str = '', indexes: collections.abc.Sequence[typing.SupportsInt | typing.SupportsIndex] = []) -> None:
        """
        Create the job from its parameters.
        """
    @property
    def parameters(self) -> SetActiveGainsParametersPy:
        """
        An object with the parameters that were passed to the constructor.
        """
class SetActiveCurrentRangesParametersPy:
    """
    Parameters of :class:`velmar_link._velmar_link.control.SetActiveCurrentRangesJob`.
    """
    def __copy__(self) -> SetActiveCurrentRangesParametersPy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> SetActiveCurrentRangesParametersPy:
        """
        An independent copy.
        """
    def __init__(self, potentiostat: str = 'MAIN:1:POT', indexes: collections.abc.Sequence[typing.SupportsInt | typing.SupportsIndex] = []) -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def indexes(self) -> list[int]:
        """
        The "indexes" value (the key of the same name on the wire).
        """
    @indexes.setter
    def indexes(self, arg0: collections.abc.Sequence[typing.SupportsInt | typing.SupportsIndex]) -> None:
        ...
    @property
    def potentiostat(self) -> str:
        """
        The "potentiostat" value (the key of the same name on the wire).
        """
    @potentiostat.setter
    def potentiostat(self, arg0: str) -> None:
        ...
class SetActiveCurrentRangesJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Select the current ranges that the ranging may use.
    
    The potentiostat is given as resource path, for example "MAIN:1:POT" or "QLC:1:EXT2:POT".
    
    :param potentiostat: the "potentiostat" parameter of the request
    :param indexes: the "indexes" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "set_active_current_ranges",
                    "parameters": {
                        "potentiostat": "MAIN:1:POT",
                        "indexes": []
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, potentiostat: str = 'MAIN:1:POT', indexes: collections.abc.Sequence[typing.SupportsInt | typing.SupportsIndex] = []) -> None:
        """
        Create the job from its parameters.
        """
    @property
    def parameters(self) -> SetActiveCurrentRangesParametersPy:
        """
        An object with the parameters that were passed to the constructor.
        """
class SetCableOptionsParametersPy:
    """
    Parameters of :class:`velmar_link._velmar_link.control.SetCableOptionsJob`.
    """
    def __copy__(self) -> SetCableOptionsParametersPy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> SetCableOptionsParametersPy:
        """
        An independent copy.
        """
    def __init__(self, potentiostat: str = 'MAIN:1:POT', additional_ce_capacitance: typing.SupportsFloat | typing.SupportsIndex = 0.0) -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def additional_ce_capacitance(self) -> float:
        """
        The "additional_ce_capacitance" value (the key of the same name on the wire).
        """
    @additional_ce_capacitance.setter
    def additional_ce_capacitance(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def potentiostat(self) -> str:
        """
        The "potentiostat" value (the key of the same name on the wire).
        """
    @potentiostat.setter
    def potentiostat(self, arg0: str) -> None:
        ...
class SetCableOptionsJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Set the cable options, the additional counter electrode capacitance in farad.
    
    The potentiostat is given as resource path, for example "MAIN:1:POT" or "QLC:1:EXT2:POT".
    
    :param potentiostat: the "potentiostat" parameter of the request
    :param additional_ce_capacitance: the "additional_ce_capacitance" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "set_cable_options",
                    "parameters": {
                        "potentiostat": "MAIN:1:POT",
                        "additional_ce_capacitance": 0.0
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, potentiostat: str = 'MAIN:1:POT', additional_ce_capacitance: typing.SupportsFloat | typing.SupportsIndex = 0.0) -> None:
        """
        Create the job from its parameters.
        """
    @property
    def parameters(self) -> SetCableOptionsParametersPy:
        """
        An object with the parameters that were passed to the constructor.
        """
class SetDateTimeParametersPy:
    """
    Parameters of :class:`velmar_link._velmar_link.control.SetDateTimeJob`.
    """
    def __copy__(self) -> SetDateTimeParametersPy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> SetDateTimeParametersPy:
        """
        An independent copy.
        """
    def __init__(self, datetime: str = '') -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def datetime(self) -> str:
        """
        The "datetime" value (the key of the same name on the wire).
        """
    @datetime.setter
    def datetime(self, arg0: str) -> None:
        ...
class SetDateTimeJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Set the real-time clock of the RQ5 (ISO 8601 text).
    
    :param datetime: the "datetime" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "set_date_time",
                    "parameters": {
                        "datetime": ""
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, datetime: str = '') -> None:
        """
        Create the job from its parameters.
        """
    @property
    def parameters(self) -> SetDateTimeParametersPy:
        """
        An object with the parameters that were passed to the constructor.
        """
class GetDateTimeJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Read the real-time clock; :meth:`get_job_result` returns the date and time as text.
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "get_date_time",
                    "parameters": {},
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self) -> None:
        """
        Create the job from its parameters.
        """
    def get_job_result(self) -> str:
        """
        The result of the last run; meaningful only when the job was successful.
        """
class InitializeRtcJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Initialize the real-time clock of the RQ5.
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "initialize_rtc",
                    "parameters": {},
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self) -> None:
        """
        Create the job from its parameters.
        """
class GetAdcStateParametersPy:
    """
    Parameters of :class:`velmar_link._velmar_link.control.GetAdcStateJob`.
    """
    def __copy__(self) -> GetAdcStateParametersPy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> GetAdcStateParametersPy:
        """
        An independent copy.
        """
    def __init__(self, adc: str = '') -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def adc(self) -> str:
        """
        The "adc" value (the key of the same name on the wire).
        """
    @adc.setter
    def adc(self, arg0: str) -> None:
        ...
class GetAdcStateJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Read the state of an ADC; :meth:`get_job_result` returns the :class:`velmar_link.control.AdcStateInfo`.
    
    :param adc: the "adc" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "get_adc_state",
                    "parameters": {
                        "adc": ""
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, adc: str = '') -> None:
        """
        Create the job from its parameters.
        """
    def get_job_result(self) -> AdcStateInfo:
        """
        The result of the last run; meaningful only when the job was successful.
        """
    @property
    def parameters(self) -> GetAdcStateParametersPy:
        """
        An object with the parameters that were passed to the constructor.
        """
class GetPotentiostatStateParametersPy:
    """
    Parameters of :class:`velmar_link._velmar_link.control.GetPotentiostatStateJob`.
    """
    def __copy__(self) -> GetPotentiostatStateParametersPy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> GetPotentiostatStateParametersPy:
        """
        An independent copy.
        """
    def __init__(self, potentiostat: str = 'MAIN:1:POT') -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def potentiostat(self) -> str:
        """
        The "potentiostat" value (the key of the same name on the wire).
        """
    @potentiostat.setter
    def potentiostat(self, arg0: str) -> None:
        ...
class GetPotentiostatStateJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Read the state of a potentiostat; :meth:`get_job_result` returns the :class:`velmar_link.control.PotentiostatState`.
    
    The potentiostat is given as resource path, for example "MAIN:1:POT" or "QLC:1:EXT2:POT".
    
    :param potentiostat: the "potentiostat" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "get_potentiostat_state",
                    "parameters": {
                        "potentiostat": "MAIN:1:POT"
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, potentiostat: str = 'MAIN:1:POT') -> None:
        """
        Create the job from its parameters.
        """
    def get_job_result(self) -> PotentiostatState:
        """
        The result of the last run; meaningful only when the job was successful.
        """
    @property
    def parameters(self) -> GetPotentiostatStateParametersPy:
        """
        An object with the parameters that were passed to the constructor.
        """
class GetHardwareInfoJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Read the device tree; :meth:`get_job_result` returns the :class:`velmar_link.HardwareInfo`.
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "get_hardware_info",
                    "parameters": {},
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self) -> None:
        """
        Create the job from its parameters.
        """
    def get_job_result(self) -> velmar_link._velmar_link.HardwareInfo:
        """
        The result of the last run; meaningful only when the job was successful.
        """
class GetHardwarePropertyParametersPy:
    """
    Parameters of :class:`velmar_link._velmar_link.control.GetHardwarePropertyJob`.
    """
    def __copy__(self) -> GetHardwarePropertyParametersPy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> GetHardwarePropertyParametersPy:
        """
        An independent copy.
        """
    def __init__(self, uri: str = '', key: str = '') -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def key(self) -> str:
        """
        The "key" value (the key of the same name on the wire).
        """
    @key.setter
    def key(self, arg0: str) -> None:
        ...
    @property
    def uri(self) -> str:
        """
        The "uri" value (the key of the same name on the wire).
        """
    @uri.setter
    def uri(self, arg0: str) -> None:
        ...
class GetHardwarePropertyJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Read a hardware property; :meth:`get_job_result` returns a bool, int, float or str as the RQ5 sent it.
    
    :param uri: the "uri" parameter of the request
    :param key: the "key" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "get_hardware_property",
                    "parameters": {
                        "uri": "",
                        "key": ""
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, uri: str = '', key: str = '') -> None:
        """
        Create the job from its parameters.
        """
    def get_job_result(self) -> bool | int | float | str:
        """
        The result of the last run; meaningful only when the job was successful.
        """
    @property
    def parameters(self) -> GetHardwarePropertyParametersPy:
        """
        An object with the parameters that were passed to the constructor.
        """
class SetHardwarePropertyParametersPy:
    """
    Parameters of :class:`velmar_link._velmar_link.control.SetHardwarePropertyJob`.
    """
    def __copy__(self) -> SetHardwarePropertyParametersPy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> SetHardwarePropertyParametersPy:
        """
        An independent copy.
        """
    def __init__(self, uri: str = '', key: str = '', value: bool | typing.SupportsInt | typing.SupportsIndex | typing.SupportsFloat | typing.SupportsIndex | str = False) -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def key(self) -> str:
        """
        The "key" value (the key of the same name on the wire).
        """
    @key.setter
    def key(self, arg0: str) -> None:
        ...
    @property
    def uri(self) -> str:
        """
        The "uri" value (the key of the same name on the wire).
        """
    @uri.setter
    def uri(self, arg0: str) -> None:
        ...
    @property
    def value(self) -> bool | int | float | str:
        """
        The "value" value (the key of the same name on the wire).
        """
    @value.setter
    def value(self, arg0: bool | typing.SupportsInt | typing.SupportsIndex | typing.SupportsFloat | typing.SupportsIndex | str) -> None:
        ...
class SetHardwarePropertyJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Set a hardware property to a bool, int, float or str.
    
    :param uri: the "uri" parameter of the request
    :param key: the "key" parameter of the request
    :param value: the "value" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "set_hardware_property",
                    "parameters": {
                        "uri": "",
                        "key": "",
                        "value": false
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, uri: str = '', key: str = '', value: bool | typing.SupportsInt | typing.SupportsIndex | typing.SupportsFloat | typing.SupportsIndex | str = False) -> None:
        """
        Create the job from its parameters.
        """
    @property
    def parameters(self) -> SetHardwarePropertyParametersPy:
        """
        An object with the parameters that were passed to the constructor.
        """
class GetHardwareSettingsJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Read the sampling configuration; :meth:`get_job_result` returns the :class:`velmar_link.HardwareSettings`.
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "get_hardware_settings",
                    "parameters": {},
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self) -> None:
        """
        Create the job from its parameters.
        """
    def get_job_result(self) -> velmar_link._velmar_link.HardwareSettings:
        """
        The result of the last run; meaningful only when the job was successful.
        """
class SetHardwareSettingsParametersPy:
    """
    Parameters of :class:`velmar_link._velmar_link.control.SetHardwareSettingsJob`.
    """
    def __copy__(self) -> SetHardwareSettingsParametersPy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> SetHardwareSettingsParametersPy:
        """
        An independent copy.
        """
    def __init__(self, output_potentiostats: collections.abc.Sequence[velmar_link._velmar_link.PotentiostatConfiguration] = [], channels: collections.abc.Sequence[velmar_link._velmar_link.Channel] = [], impedance_configurations: collections.abc.Sequence[velmar_link._velmar_link.ImpedanceConfiguration] = []) -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def channels(self) -> list[velmar_link._velmar_link.Channel]:
        """
        The "channels" value (the key of the same name on the wire).
        """
    @channels.setter
    def channels(self, arg0: collections.abc.Sequence[velmar_link._velmar_link.Channel]) -> None:
        ...
    @property
    def impedance_configurations(self) -> list[velmar_link._velmar_link.ImpedanceConfiguration]:
        """
        The "impedance_configurations" value (the key of the same name on the wire).
        """
    @impedance_configurations.setter
    def impedance_configurations(self, arg0: collections.abc.Sequence[velmar_link._velmar_link.ImpedanceConfiguration]) -> None:
        ...
    @property
    def output_potentiostats(self) -> list[velmar_link._velmar_link.PotentiostatConfiguration]:
        """
        The "output_potentiostats" value (the key of the same name on the wire).
        """
    @output_potentiostats.setter
    def output_potentiostats(self, arg0: collections.abc.Sequence[velmar_link._velmar_link.PotentiostatConfiguration]) -> None:
        ...
class SetHardwareSettingsJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Set the sampling configuration: the channels to sample, the impedances to compute and the output potentiostats. :class:`velmar_link.HardwareSettingsHelper` builds the usual configurations.
    
    :param output_potentiostats: the "output_potentiostats" parameter of the request
    :param channels: the "channels" parameter of the request
    :param impedance_configurations: the "impedance_configurations" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "set_hardware_settings",
                    "parameters": {
                        "output_potentiostats": [],
                        "channels": [],
                        "impedance_configurations": []
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    @typing.overload
    def __init__(self, channels: collections.abc.Sequence[velmar_link._velmar_link.Channel] = [], impedance_configurations: collections.abc.Sequence[velmar_link._velmar_link.ImpedanceConfiguration] = [], output_potentiostats: collections.abc.Sequence[velmar_link._velmar_link.PotentiostatConfiguration] = []) -> None:
        """
        Create the job from the three lists.
        
        :param channels: list of :class:`velmar_link.Channel`
        :param impedance_configurations: list of :class:`velmar_link.ImpedanceConfiguration`
        :param output_potentiostats: list of :class:`velmar_link.PotentiostatConfiguration`
        """
    @typing.overload
    def __init__(self, config: velmar_link._velmar_link.UserHardwareSettings) -> None:
        """
        Create the job from a :class:`velmar_link.UserHardwareSettings`, for example one of :class:`velmar_link.HardwareSettingsHelper`.
        
        :param config: the configuration
        """
    @property
    def parameters(self) -> SetHardwareSettingsParametersPy:
        """
        An object with the parameters that were passed to the constructor.
        """
class MeasureIntegralParametersPy:
    """
    Parameters of :class:`velmar_link._velmar_link.control.MeasureIntegralJob`.
    """
    def __copy__(self) -> MeasureIntegralParametersPy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> MeasureIntegralParametersPy:
        """
        An independent copy.
        """
    def __init__(self, channel: str = '', duration: typing.SupportsFloat | typing.SupportsIndex = 1.0) -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def channel(self) -> str:
        """
        The "channel" value (the key of the same name on the wire).
        """
    @channel.setter
    def channel(self, arg0: str) -> None:
        ...
    @property
    def duration(self) -> float:
        """
        The "duration" value (the key of the same name on the wire).
        """
    @duration.setter
    def duration(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
class MeasureIntegralJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Integrate a channel over the duration; :meth:`get_job_result` returns the value as float.
    
    :param channel: the "channel" parameter of the request
    :param duration: the "duration" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "measure_integral",
                    "parameters": {
                        "channel": "",
                        "duration": 1.0
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, channel: str = '', duration: typing.SupportsFloat | typing.SupportsIndex = 1.0) -> None:
        """
        Create the job from its parameters.
        """
    def get_job_result(self) -> float:
        """
        The result of the last run; meaningful only when the job was successful.
        """
    @property
    def parameters(self) -> MeasureIntegralParametersPy:
        """
        An object with the parameters that were passed to the constructor.
        """
class SetFirmwareUpdateParametersPy:
    """
    Parameters of :class:`velmar_link._velmar_link.control.SetFirmwareUpdateJob`.
    """
    def __copy__(self) -> SetFirmwareUpdateParametersPy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> SetFirmwareUpdateParametersPy:
        """
        An independent copy.
        """
    def __init__(self, resource_id: str = '') -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def resource_id(self) -> str:
        """
        The "resource_id" value (the key of the same name on the wire).
        """
    @resource_id.setter
    def resource_id(self, arg0: str) -> None:
        ...
class SetFirmwareUpdateJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Install a firmware update uploaded before as resource.
    
    :param resource_id: the "resource_id" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "set_firmware_update",
                    "parameters": {
                        "resource_id": ""
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, resource_id: str = '') -> None:
        """
        Create the job from its parameters.
        """
    @property
    def parameters(self) -> SetFirmwareUpdateParametersPy:
        """
        An object with the parameters that were passed to the constructor.
        """
class RebootJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Reboot the RQ5.
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "reboot",
                    "parameters": {},
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self) -> None:
        """
        Create the job from its parameters.
        """
class ReenumerateHardwareJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Detect the connected potentiostats and cards again.
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "reenumerate_hardware",
                    "parameters": {},
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self) -> None:
        """
        Create the job from its parameters.
        """
