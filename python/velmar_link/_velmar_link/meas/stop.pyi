"""
Submodule with measurement jobs.
"""
from __future__ import annotations
import typing
__all__: list[str] = ['AbstractStopCondition', 'InRangeStopCondition', 'IntegratingLimitStopCondition', 'MaxLimitStopCondition', 'MinLimitStopCondition', 'MinMaxLimitStopCondition', 'StabilityToleranceLimitStopCondition']
class AbstractStopCondition:
    """
    Abstract base class for stop conditions.
    """
    def get_parameters_json(self) -> str:
        """
        The parameters as JSON text.
        """
    def get_type_name(self) -> str:
        """
        The type name sent as "type", for example "min_max".
        """
class MinLimitStopCondition(AbstractStopCondition):
    """
    Stops the job when the dimension falls below the minimum.
    """
    def __init__(self, for_dimension: str = 'voltage', minimum: typing.SupportsFloat | typing.SupportsIndex = 0.0) -> None:
        """
        Create the stop condition; the limits are keyword arguments.
        """
    @property
    def for_dimension(self) -> str:
        """
        The value passed to the constructor.
        """
    @property
    def minimum(self) -> float:
        """
        The value passed to the constructor.
        """
class MaxLimitStopCondition(AbstractStopCondition):
    """
    Stops the job when the dimension exceeds the maximum.
    """
    def __init__(self, for_dimension: str = 'voltage', maximum: typing.SupportsFloat | typing.SupportsIndex = 0.0) -> None:
        """
        Create the stop condition; the limits are keyword arguments.
        """
    @property
    def for_dimension(self) -> str:
        """
        The value passed to the constructor.
        """
    @property
    def maximum(self) -> float:
        """
        The value passed to the constructor.
        """
class MinMaxLimitStopCondition(AbstractStopCondition):
    """
    Stops the job when the dimension leaves the band between minimum and maximum.
    """
    def __init__(self, for_dimension: str = 'voltage', minimum: typing.SupportsFloat | typing.SupportsIndex = 0.0, maximum: typing.SupportsFloat | typing.SupportsIndex = 0.0) -> None:
        """
        Create the stop condition; the limits are keyword arguments.
        """
    @property
    def for_dimension(self) -> str:
        """
        The value passed to the constructor.
        """
    @property
    def maximum(self) -> float:
        """
        The value passed to the constructor.
        """
    @property
    def minimum(self) -> float:
        """
        The value passed to the constructor.
        """
class IntegratingLimitStopCondition(AbstractStopCondition):
    """
    Stops the job when the integral of the absolute value of one dimension over another (for example current over time) exceeds the maximum.
    """
    def __init__(self, for_dimension: str = 'current', over_dimension: str = 'time', maximum: typing.SupportsFloat | typing.SupportsIndex = 0.0) -> None:
        """
        Create the stop condition; the limits are keyword arguments.
        """
    @property
    def for_dimension(self) -> str:
        """
        The value passed to the constructor.
        """
    @property
    def maximum(self) -> float:
        """
        The value passed to the constructor.
        """
    @property
    def over_dimension(self) -> str:
        """
        The value passed to the constructor.
        """
class StabilityToleranceLimitStopCondition(AbstractStopCondition):
    """
    Stops the job when the change of the dimension per second stays below the absolute tolerance; evaluated only after the minimum duration in seconds.
    """
    def __init__(self, for_dimension: str = 'voltage', stability_tolerance: typing.SupportsFloat | typing.SupportsIndex = 0.0, minimum_duration: typing.SupportsFloat | typing.SupportsIndex = 0.0) -> None:
        """
        Create the stop condition; the limits are keyword arguments.
        """
    @property
    def for_dimension(self) -> str:
        """
        The value passed to the constructor.
        """
    @property
    def minimum_duration(self) -> float:
        """
        The value passed to the constructor.
        """
    @property
    def stability_tolerance(self) -> float:
        """
        The value passed to the constructor.
        """
class InRangeStopCondition(AbstractStopCondition):
    """
    Stops the job when the value lies within the range, bounds included (value >= minimum and value <= maximum).
    """
    def __init__(self, for_dimension: str = 'voltage', minimum: typing.SupportsFloat | typing.SupportsIndex = 0.0, maximum: typing.SupportsFloat | typing.SupportsIndex = 0.0) -> None:
        """
        Create the stop condition; the limits are keyword arguments.
        """
    @property
    def for_dimension(self) -> str:
        """
        The value passed to the constructor.
        """
    @property
    def maximum(self) -> float:
        """
        The value passed to the constructor.
        """
    @property
    def minimum(self) -> float:
        """
        The value passed to the constructor.
        """
