"""
Submodule with measurement jobs.
"""
from __future__ import annotations
import collections.abc
import numpy
import numpy.typing
import typing
import velmar_link._velmar_link
from . import stop
__all__: list[str] = ['AcCvJob', 'AcCvParametersPy', 'CvJob', 'CvParametersPy', 'DpvJob', 'DpvParametersPy', 'EisFrequencyRangeGenerate', 'EisFrequencyTableJob', 'EisGenerateJob', 'EisMultiSineTable', 'EisMultiSineTableEntry', 'EisMultiSineTablePy', 'EisMultisineFrequencyRangeGenerate', 'EisMultisineGenerateJob', 'EisMultisineParametersGeneratePy', 'EisMultisineTableJob', 'EisParametersFrequencyTable', 'EisParametersFrequencyTableEntry', 'EisParametersFrequencyTablePy', 'EisParametersGeneratePy', 'FastCyclingJob', 'FastCyclingParametersPy', 'GeisVaFrequencyTableJob', 'GeisVaGenerateJob', 'GeisVaParametersFrequencyTable', 'GeisVaParametersFrequencyTablePy', 'GeisVaParametersGeneratePy', 'NpvJob', 'NpvParametersPy', 'OcvJob', 'OcvParametersPy', 'PogaJob', 'PogaParametersPy', 'RampJob', 'RampParametersPy', 'SteadyStairsJob', 'SteadyStairsParametersPy', 'SwvJob', 'SwvParametersPy', 'WaveFileJob', 'WaveFileParametersPy', 'WaveJob', 'WaveParametersPy', 'stop']
class CvParametersPy:
    """
    Parameters of :class:`velmar_link._velmar_link.meas.CvJob`.
    """
    def __copy__(self) -> CvParametersPy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> CvParametersPy:
        """
        An independent copy.
        """
    def __init__(self, start_value: typing.SupportsFloat | typing.SupportsIndex = 0.0, first_vertex: typing.SupportsFloat | typing.SupportsIndex = 0.5, second_vertex: typing.SupportsFloat | typing.SupportsIndex = -0.5, end_value: typing.SupportsFloat | typing.SupportsIndex = 0.0, scan_rate: typing.SupportsFloat | typing.SupportsIndex = 0.1, output_data_rate: typing.SupportsFloat | typing.SupportsIndex = 10.0, num_cycles: typing.SupportsFloat | typing.SupportsIndex = 1.0, autorange: bool = True, current_range: typing.SupportsFloat | typing.SupportsIndex = 0.01, turn_limit_check: bool = False, upper_turn_boundary: typing.SupportsFloat | typing.SupportsIndex = 0.0, lower_turn_boundary: typing.SupportsFloat | typing.SupportsIndex = 0.0, step_height: typing.SupportsFloat | typing.SupportsIndex = 0.0, ir_drop: typing.SupportsFloat | typing.SupportsIndex = 0.0) -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def autorange(self) -> bool:
        """
        The "autorange" value (the key of the same name on the wire).
        """
    @autorange.setter
    def autorange(self, arg0: bool) -> None:
        ...
    @property
    def current_range(self) -> float:
        """
        The "current_range" value (the key of the same name on the wire).
        """
    @current_range.setter
    def current_range(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def end_value(self) -> float:
        """
        The "end_value" value (the key of the same name on the wire).
        """
    @end_value.setter
    def end_value(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def first_vertex(self) -> float:
        """
        The "first_vertex" value (the key of the same name on the wire).
        """
    @first_vertex.setter
    def first_vertex(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def ir_drop(self) -> float:
        """
        The "ir_drop" value (the key of the same name on the wire).
        """
    @ir_drop.setter
    def ir_drop(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def lower_turn_boundary(self) -> float:
        """
        The "lower_turn_boundary" value (the key of the same name on the wire).
        """
    @lower_turn_boundary.setter
    def lower_turn_boundary(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def num_cycles(self) -> float:
        """
        The "num_cycles" value (the key of the same name on the wire).
        """
    @num_cycles.setter
    def num_cycles(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def output_data_rate(self) -> float:
        """
        The "output_data_rate" value (the key of the same name on the wire).
        """
    @output_data_rate.setter
    def output_data_rate(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def scan_rate(self) -> float:
        """
        The "scan_rate" value (the key of the same name on the wire).
        """
    @scan_rate.setter
    def scan_rate(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def second_vertex(self) -> float:
        """
        The "second_vertex" value (the key of the same name on the wire).
        """
    @second_vertex.setter
    def second_vertex(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def start_value(self) -> float:
        """
        The "start_value" value (the key of the same name on the wire).
        """
    @start_value.setter
    def start_value(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def step_height(self) -> float:
        """
        The "step_height" value (the key of the same name on the wire).
        """
    @step_height.setter
    def step_height(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def turn_limit_check(self) -> bool:
        """
        The "turn_limit_check" value (the key of the same name on the wire).
        """
    @turn_limit_check.setter
    def turn_limit_check(self, arg0: bool) -> None:
        ...
    @property
    def upper_turn_boundary(self) -> float:
        """
        The "upper_turn_boundary" value (the key of the same name on the wire).
        """
    @upper_turn_boundary.setter
    def upper_turn_boundary(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
class CvJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Cyclic voltammetry: sweeps from the start value to the vertices and to the end value.
    
    :param start_value: the "start_value" parameter of the request
    :param first_vertex: the "first_vertex" parameter of the request
    :param second_vertex: the "second_vertex" parameter of the request
    :param end_value: the "end_value" parameter of the request
    :param scan_rate: the "scan_rate" parameter of the request
    :param output_data_rate: the "output_data_rate" parameter of the request
    :param num_cycles: the "num_cycles" parameter of the request
    :param autorange: the "autorange" parameter of the request
    :param current_range: the "current_range" parameter of the request
    :param turn_limit_check: the "turn_limit_check" parameter of the request
    :param upper_turn_boundary: the "upper_turn_boundary" parameter of the request
    :param lower_turn_boundary: the "lower_turn_boundary" parameter of the request
    :param step_height: the "step_height" parameter of the request
    :param ir_drop: the "ir_drop" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "cv",
                    "parameters": {
                        "start_value": 0.0,
                        "first_vertex": 0.5,
                        "second_vertex": -0.5,
                        "end_value": 0.0,
                        "scan_rate": 0.1,
                        "output_data_rate": 10.0,
                        "num_cycles": 1.0,
                        "autorange": true,
                        "current_range": 0.01,
                        "turn_limit_check": false,
                        "upper_turn_boundary": 0.0,
                        "lower_turn_boundary": 0.0,
                        "step_height": 0.0,
                        "ir_drop": 0.0
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, start_value: typing.SupportsFloat | typing.SupportsIndex = 0.0, first_vertex: typing.SupportsFloat | typing.SupportsIndex = 0.5, second_vertex: typing.SupportsFloat | typing.SupportsIndex = -0.5, end_value: typing.SupportsFloat | typing.SupportsIndex = 0.0, scan_rate: typing.SupportsFloat | typing.SupportsIndex = 0.1, output_data_rate: typing.SupportsFloat | typing.SupportsIndex = 10.0, num_cycles: typing.SupportsFloat | typing.SupportsIndex = 1.0, autorange: bool = True, current_range: typing.SupportsFloat | typing.SupportsIndex = 0.01, turn_limit_check: bool = False, upper_turn_boundary: typing.SupportsFloat | typing.SupportsIndex = 0.0, lower_turn_boundary: typing.SupportsFloat | typing.SupportsIndex = 0.0, step_height: typing.SupportsFloat | typing.SupportsIndex = 0.0, ir_drop: typing.SupportsFloat | typing.SupportsIndex = 0.0, stop_conditions: collections.abc.Sequence[stop.AbstractStopCondition] = [], meta_data: collections.abc.Mapping[str, str] = {}) -> None:
        """
        Create the job from its parameters.
        """
    def add_finished_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.JobInfo], None]) -> None:
        """
        Add a callback for the end of this job's live data; it receives the JobInfo.
        """
    def add_header_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.LiveDataHeader, velmar_link._velmar_link.JobInfo], None]) -> None:
        """
        Add a callback for the live-data header of this job.
        
        The callback receives a LiveDataHeader and the JobInfo; it runs on the link's I/O thread with the
        interpreter lock held. An exception it raises is reported as unraisable.
        """
    def add_live_data_collector(self) -> velmar_link._velmar_link.DcLiveDataCollector:
        """
        Collect this job's live data natively into a DcDataset; returns the DcLiveDataCollector.
        
        No Python code runs per event; read the dataset once the job has ended.
        """
    def add_rows_array_callback(self, callback: collections.abc.Callable[[numpy.typing.NDArray[numpy.float64]], None]) -> None:
        """
        Add a callback that receives each block of rows as a numpy array.
        
        The array is a new float64 array of shape (rows, columns); converting it is far cheaper than
        building lists.
        """
    def add_rows_callback(self, callback: collections.abc.Callable[[list[list[float]]], None]) -> None:
        """
        Add a callback for the blocks of live-data rows of this job.
        
        The callback receives a list of rows, each a list of floats in the order of the header's columns.
        """
    def get_number_of_live_data_callbacks(self) -> int:
        """
        The number of live-data callbacks added to this job.
        """
    @property
    def parameters(self) -> CvParametersPy:
        """
        An object with the parameters that were passed to the constructor.
        """
class AcCvParametersPy:
    """
    Parameters of :class:`velmar_link._velmar_link.meas.AcCvJob`.
    """
    def __copy__(self) -> AcCvParametersPy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> AcCvParametersPy:
        """
        An independent copy.
        """
    def __init__(self, start_value: typing.SupportsFloat | typing.SupportsIndex = 0.0, first_vertex: typing.SupportsFloat | typing.SupportsIndex = 0.5, second_vertex: typing.SupportsFloat | typing.SupportsIndex = -0.5, end_value: typing.SupportsFloat | typing.SupportsIndex = 0.0, scan_rate: typing.SupportsFloat | typing.SupportsIndex = 0.1, output_data_rate: typing.SupportsFloat | typing.SupportsIndex = 10.0, num_cycles: typing.SupportsFloat | typing.SupportsIndex = 1.0, amplitude: typing.SupportsFloat | typing.SupportsIndex = 0.01, frequency: typing.SupportsFloat | typing.SupportsIndex = 1000.0, current_range: typing.SupportsFloat | typing.SupportsIndex = 0.01) -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def amplitude(self) -> float:
        """
        The "amplitude" value (the key of the same name on the wire).
        """
    @amplitude.setter
    def amplitude(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def current_range(self) -> float:
        """
        The "current_range" value (the key of the same name on the wire).
        """
    @current_range.setter
    def current_range(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def end_value(self) -> float:
        """
        The "end_value" value (the key of the same name on the wire).
        """
    @end_value.setter
    def end_value(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def first_vertex(self) -> float:
        """
        The "first_vertex" value (the key of the same name on the wire).
        """
    @first_vertex.setter
    def first_vertex(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def frequency(self) -> float:
        """
        The "frequency" value (the key of the same name on the wire).
        """
    @frequency.setter
    def frequency(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def num_cycles(self) -> float:
        """
        The "num_cycles" value (the key of the same name on the wire).
        """
    @num_cycles.setter
    def num_cycles(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def output_data_rate(self) -> float:
        """
        The "output_data_rate" value (the key of the same name on the wire).
        """
    @output_data_rate.setter
    def output_data_rate(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def scan_rate(self) -> float:
        """
        The "scan_rate" value (the key of the same name on the wire).
        """
    @scan_rate.setter
    def scan_rate(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def second_vertex(self) -> float:
        """
        The "second_vertex" value (the key of the same name on the wire).
        """
    @second_vertex.setter
    def second_vertex(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def start_value(self) -> float:
        """
        The "start_value" value (the key of the same name on the wire).
        """
    @start_value.setter
    def start_value(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
class AcCvJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Cyclic voltammetry with a superimposed sine of the given amplitude and frequency.
    
    :param start_value: the "start_value" parameter of the request
    :param first_vertex: the "first_vertex" parameter of the request
    :param second_vertex: the "second_vertex" parameter of the request
    :param end_value: the "end_value" parameter of the request
    :param scan_rate: the "scan_rate" parameter of the request
    :param output_data_rate: the "output_data_rate" parameter of the request
    :param num_cycles: the "num_cycles" parameter of the request
    :param amplitude: the "amplitude" parameter of the request
    :param frequency: the "frequency" parameter of the request
    :param current_range: the "current_range" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "ac_cv",
                    "parameters": {
                        "start_value": 0.0,
                        "first_vertex": 0.5,
                        "second_vertex": -0.5,
                        "end_value": 0.0,
                        "scan_rate": 0.1,
                        "output_data_rate": 10.0,
                        "num_cycles": 1.0,
                        "amplitude": 0.01,
                        "frequency": 1000.0,
                        "current_range": 0.01
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, start_value: typing.SupportsFloat | typing.SupportsIndex = 0.0, first_vertex: typing.SupportsFloat | typing.SupportsIndex = 0.5, second_vertex: typing.SupportsFloat | typing.SupportsIndex = -0.5, end_value: typing.SupportsFloat | typing.SupportsIndex = 0.0, scan_rate: typing.SupportsFloat | typing.SupportsIndex = 0.1, output_data_rate: typing.SupportsFloat | typing.SupportsIndex = 10.0, num_cycles: typing.SupportsFloat | typing.SupportsIndex = 1.0, amplitude: typing.SupportsFloat | typing.SupportsIndex = 0.01, frequency: typing.SupportsFloat | typing.SupportsIndex = 1000.0, current_range: typing.SupportsFloat | typing.SupportsIndex = 0.01, stop_conditions: collections.abc.Sequence[stop.AbstractStopCondition] = [], meta_data: collections.abc.Mapping[str, str] = {}) -> None:
        """
        Create the job from its parameters.
        """
    def add_finished_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.JobInfo], None]) -> None:
        """
        Add a callback for the end of this job's live data; it receives the JobInfo.
        """
    def add_header_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.LiveDataHeader, velmar_link._velmar_link.JobInfo], None]) -> None:
        """
        Add a callback for the live-data header of this job.
        
        The callback receives a LiveDataHeader and the JobInfo; it runs on the link's I/O thread with the
        interpreter lock held. An exception it raises is reported as unraisable.
        """
    def add_live_data_collector(self) -> velmar_link._velmar_link.DcLiveDataCollector:
        """
        Collect this job's live data natively into a DcDataset; returns the DcLiveDataCollector.
        
        No Python code runs per event; read the dataset once the job has ended.
        """
    def add_rows_array_callback(self, callback: collections.abc.Callable[[numpy.typing.NDArray[numpy.float64]], None]) -> None:
        """
        Add a callback that receives each block of rows as a numpy array.
        
        The array is a new float64 array of shape (rows, columns); converting it is far cheaper than
        building lists.
        """
    def add_rows_callback(self, callback: collections.abc.Callable[[list[list[float]]], None]) -> None:
        """
        Add a callback for the blocks of live-data rows of this job.
        
        The callback receives a list of rows, each a list of floats in the order of the header's columns.
        """
    def get_number_of_live_data_callbacks(self) -> int:
        """
        The number of live-data callbacks added to this job.
        """
    @property
    def parameters(self) -> AcCvParametersPy:
        """
        An object with the parameters that were passed to the constructor.
        """
class FastCyclingParametersPy:
    """
    Parameters of :class:`velmar_link._velmar_link.meas.FastCyclingJob`.
    """
    def __copy__(self) -> FastCyclingParametersPy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> FastCyclingParametersPy:
        """
        An independent copy.
        """
    def __init__(self, first_step: typing.SupportsFloat | typing.SupportsIndex = 0.5, second_step: typing.SupportsFloat | typing.SupportsIndex = -0.5, end_value: typing.SupportsFloat | typing.SupportsIndex = 0.0, step_time: typing.SupportsFloat | typing.SupportsIndex = 1.0, output_data_rate: typing.SupportsFloat | typing.SupportsIndex = 10.0, num_cycles: typing.SupportsFloat | typing.SupportsIndex = 1.0, autorange: bool = True, current_range: typing.SupportsFloat | typing.SupportsIndex = 0.01, turn_limit_check: bool = False, upper_turn_boundary: typing.SupportsFloat | typing.SupportsIndex = 0.0, lower_turn_boundary: typing.SupportsFloat | typing.SupportsIndex = 0.0) -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def autorange(self) -> bool:
        """
        The "autorange" value (the key of the same name on the wire).
        """
    @autorange.setter
    def autorange(self, arg0: bool) -> None:
        ...
    @property
    def current_range(self) -> float:
        """
        The "current_range" value (the key of the same name on the wire).
        """
    @current_range.setter
    def current_range(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def end_value(self) -> float:
        """
        The "end_value" value (the key of the same name on the wire).
        """
    @end_value.setter
    def end_value(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def first_step(self) -> float:
        """
        The "first_step" value (the key of the same name on the wire).
        """
    @first_step.setter
    def first_step(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def lower_turn_boundary(self) -> float:
        """
        The "lower_turn_boundary" value (the key of the same name on the wire).
        """
    @lower_turn_boundary.setter
    def lower_turn_boundary(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def num_cycles(self) -> float:
        """
        The "num_cycles" value (the key of the same name on the wire).
        """
    @num_cycles.setter
    def num_cycles(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def output_data_rate(self) -> float:
        """
        The "output_data_rate" value (the key of the same name on the wire).
        """
    @output_data_rate.setter
    def output_data_rate(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def second_step(self) -> float:
        """
        The "second_step" value (the key of the same name on the wire).
        """
    @second_step.setter
    def second_step(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def step_time(self) -> float:
        """
        The "step_time" value (the key of the same name on the wire).
        """
    @step_time.setter
    def step_time(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def turn_limit_check(self) -> bool:
        """
        The "turn_limit_check" value (the key of the same name on the wire).
        """
    @turn_limit_check.setter
    def turn_limit_check(self, arg0: bool) -> None:
        ...
    @property
    def upper_turn_boundary(self) -> float:
        """
        The "upper_turn_boundary" value (the key of the same name on the wire).
        """
    @upper_turn_boundary.setter
    def upper_turn_boundary(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
class FastCyclingJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Alternates between two steps without dead time, then drives to the end value.
    
    :param first_step: the "first_step" parameter of the request
    :param second_step: the "second_step" parameter of the request
    :param end_value: the "end_value" parameter of the request
    :param step_time: the "step_time" parameter of the request
    :param output_data_rate: the "output_data_rate" parameter of the request
    :param num_cycles: the "num_cycles" parameter of the request
    :param autorange: the "autorange" parameter of the request
    :param current_range: the "current_range" parameter of the request
    :param turn_limit_check: the "turn_limit_check" parameter of the request
    :param upper_turn_boundary: the "upper_turn_boundary" parameter of the request
    :param lower_turn_boundary: the "lower_turn_boundary" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "fast_cycling",
                    "parameters": {
                        "first_step": 0.5,
                        "second_step": -0.5,
                        "end_value": 0.0,
                        "step_time": 1.0,
                        "output_data_rate": 10.0,
                        "num_cycles": 1.0,
                        "autorange": true,
                        "current_range": 0.01,
                        "turn_limit_check": false,
                        "upper_turn_boundary": 0.0,
                        "lower_turn_boundary": 0.0
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, first_step: typing.SupportsFloat | typing.SupportsIndex = 0.5, second_step: typing.SupportsFloat | typing.SupportsIndex = -0.5, end_value: typing.SupportsFloat | typing.SupportsIndex = 0.0, step_time: typing.SupportsFloat | typing.SupportsIndex = 1.0, output_data_rate: typing.SupportsFloat | typing.SupportsIndex = 10.0, num_cycles: typing.SupportsFloat | typing.SupportsIndex = 1.0, autorange: bool = True, current_range: typing.SupportsFloat | typing.SupportsIndex = 0.01, turn_limit_check: bool = False, upper_turn_boundary: typing.SupportsFloat | typing.SupportsIndex = 0.0, lower_turn_boundary: typing.SupportsFloat | typing.SupportsIndex = 0.0, stop_conditions: collections.abc.Sequence[stop.AbstractStopCondition] = [], meta_data: collections.abc.Mapping[str, str] = {}) -> None:
        """
        Create the job from its parameters.
        """
    def add_finished_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.JobInfo], None]) -> None:
        """
        Add a callback for the end of this job's live data; it receives the JobInfo.
        """
    def add_header_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.LiveDataHeader, velmar_link._velmar_link.JobInfo], None]) -> None:
        """
        Add a callback for the live-data header of this job.
        
        The callback receives a LiveDataHeader and the JobInfo; it runs on the link's I/O thread with the
        interpreter lock held. An exception it raises is reported as unraisable.
        """
    def add_live_data_collector(self) -> velmar_link._velmar_link.DcLiveDataCollector:
        """
        Collect this job's live data natively into a DcDataset; returns the DcLiveDataCollector.
        
        No Python code runs per event; read the dataset once the job has ended.
        """
    def add_rows_array_callback(self, callback: collections.abc.Callable[[numpy.typing.NDArray[numpy.float64]], None]) -> None:
        """
        Add a callback that receives each block of rows as a numpy array.
        
        The array is a new float64 array of shape (rows, columns); converting it is far cheaper than
        building lists.
        """
    def add_rows_callback(self, callback: collections.abc.Callable[[list[list[float]]], None]) -> None:
        """
        Add a callback for the blocks of live-data rows of this job.
        
        The callback receives a list of rows, each a list of floats in the order of the header's columns.
        """
    def get_number_of_live_data_callbacks(self) -> int:
        """
        The number of live-data callbacks added to this job.
        """
    @property
    def parameters(self) -> FastCyclingParametersPy:
        """
        An object with the parameters that were passed to the constructor.
        """
class RampParametersPy:
    """
    Parameters of :class:`velmar_link._velmar_link.meas.RampJob`.
    """
    def __copy__(self) -> RampParametersPy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> RampParametersPy:
        """
        An independent copy.
        """
    def __init__(self, start_value: typing.SupportsFloat | typing.SupportsIndex = 0.0, end_value: typing.SupportsFloat | typing.SupportsIndex = 0.5, scan_rate: typing.SupportsFloat | typing.SupportsIndex = 0.1, step_height: typing.SupportsFloat | typing.SupportsIndex = 0.0, output_data_rate: typing.SupportsFloat | typing.SupportsIndex = 10.0, autorange: bool = True, current_range: typing.SupportsFloat | typing.SupportsIndex = 0.01) -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def autorange(self) -> bool:
        """
        The "autorange" value (the key of the same name on the wire).
        """
    @autorange.setter
    def autorange(self, arg0: bool) -> None:
        ...
    @property
    def current_range(self) -> float:
        """
        The "current_range" value (the key of the same name on the wire).
        """
    @current_range.setter
    def current_range(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def end_value(self) -> float:
        """
        The "end_value" value (the key of the same name on the wire).
        """
    @end_value.setter
    def end_value(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def output_data_rate(self) -> float:
        """
        The "output_data_rate" value (the key of the same name on the wire).
        """
    @output_data_rate.setter
    def output_data_rate(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def scan_rate(self) -> float:
        """
        The "scan_rate" value (the key of the same name on the wire).
        """
    @scan_rate.setter
    def scan_rate(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def start_value(self) -> float:
        """
        The "start_value" value (the key of the same name on the wire).
        """
    @start_value.setter
    def start_value(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def step_height(self) -> float:
        """
        The "step_height" value (the key of the same name on the wire).
        """
    @step_height.setter
    def step_height(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
class RampJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    A linear sweep from the start value to the end value.
    
    :param start_value: the "start_value" parameter of the request
    :param end_value: the "end_value" parameter of the request
    :param scan_rate: the "scan_rate" parameter of the request
    :param step_height: the "step_height" parameter of the request
    :param output_data_rate: the "output_data_rate" parameter of the request
    :param autorange: the "autorange" parameter of the request
    :param current_range: the "current_range" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "ramp",
                    "parameters": {
                        "start_value": 0.0,
                        "end_value": 0.5,
                        "scan_rate": 0.1,
                        "step_height": 0.0,
                        "output_data_rate": 10.0,
                        "autorange": true,
                        "current_range": 0.01
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, start_value: typing.SupportsFloat | typing.SupportsIndex = 0.0, end_value: typing.SupportsFloat | typing.SupportsIndex = 0.5, scan_rate: typing.SupportsFloat | typing.SupportsIndex = 0.1, step_height: typing.SupportsFloat | typing.SupportsIndex = 0.0, output_data_rate: typing.SupportsFloat | typing.SupportsIndex = 10.0, autorange: bool = True, current_range: typing.SupportsFloat | typing.SupportsIndex = 0.01, stop_conditions: collections.abc.Sequence[stop.AbstractStopCondition] = [], meta_data: collections.abc.Mapping[str, str] = {}) -> None:
        """
        Create the job from its parameters.
        """
    def add_finished_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.JobInfo], None]) -> None:
        """
        Add a callback for the end of this job's live data; it receives the JobInfo.
        """
    def add_header_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.LiveDataHeader, velmar_link._velmar_link.JobInfo], None]) -> None:
        """
        Add a callback for the live-data header of this job.
        
        The callback receives a LiveDataHeader and the JobInfo; it runs on the link's I/O thread with the
        interpreter lock held. An exception it raises is reported as unraisable.
        """
    def add_live_data_collector(self) -> velmar_link._velmar_link.DcLiveDataCollector:
        """
        Collect this job's live data natively into a DcDataset; returns the DcLiveDataCollector.
        
        No Python code runs per event; read the dataset once the job has ended.
        """
    def add_rows_array_callback(self, callback: collections.abc.Callable[[numpy.typing.NDArray[numpy.float64]], None]) -> None:
        """
        Add a callback that receives each block of rows as a numpy array.
        
        The array is a new float64 array of shape (rows, columns); converting it is far cheaper than
        building lists.
        """
    def add_rows_callback(self, callback: collections.abc.Callable[[list[list[float]]], None]) -> None:
        """
        Add a callback for the blocks of live-data rows of this job.
        
        The callback receives a list of rows, each a list of floats in the order of the header's columns.
        """
    def get_number_of_live_data_callbacks(self) -> int:
        """
        The number of live-data callbacks added to this job.
        """
    @property
    def parameters(self) -> RampParametersPy:
        """
        An object with the parameters that were passed to the constructor.
        """
class SteadyStairsParametersPy:
    """
    Parameters of :class:`velmar_link._velmar_link.meas.SteadyStairsJob`.
    """
    def __copy__(self) -> SteadyStairsParametersPy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> SteadyStairsParametersPy:
        """
        An independent copy.
        """
    def __init__(self, start_value: typing.SupportsFloat | typing.SupportsIndex = 0.0, end_value: typing.SupportsFloat | typing.SupportsIndex = 0.5, step_time: typing.SupportsFloat | typing.SupportsIndex = 1.0, step_height: typing.SupportsFloat | typing.SupportsIndex = 0.01, hold_time: typing.SupportsFloat | typing.SupportsIndex = 0.0, stability_tolerance: typing.SupportsFloat | typing.SupportsIndex = 0.0, output_data_rate: typing.SupportsFloat | typing.SupportsIndex = 10.0, autorange: bool = True, current_range: typing.SupportsFloat | typing.SupportsIndex = 0.01, ir_drop: typing.SupportsFloat | typing.SupportsIndex = 0.0) -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def autorange(self) -> bool:
        """
        The "autorange" value (the key of the same name on the wire).
        """
    @autorange.setter
    def autorange(self, arg0: bool) -> None:
        ...
    @property
    def current_range(self) -> float:
        """
        The "current_range" value (the key of the same name on the wire).
        """
    @current_range.setter
    def current_range(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def end_value(self) -> float:
        """
        The "end_value" value (the key of the same name on the wire).
        """
    @end_value.setter
    def end_value(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def hold_time(self) -> float:
        """
        The "hold_time" value (the key of the same name on the wire).
        """
    @hold_time.setter
    def hold_time(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def ir_drop(self) -> float:
        """
        The "ir_drop" value (the key of the same name on the wire).
        """
    @ir_drop.setter
    def ir_drop(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def output_data_rate(self) -> float:
        """
        The "output_data_rate" value (the key of the same name on the wire).
        """
    @output_data_rate.setter
    def output_data_rate(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def stability_tolerance(self) -> float:
        """
        The "stability_tolerance" value (the key of the same name on the wire).
        """
    @stability_tolerance.setter
    def stability_tolerance(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def start_value(self) -> float:
        """
        The "start_value" value (the key of the same name on the wire).
        """
    @start_value.setter
    def start_value(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def step_height(self) -> float:
        """
        The "step_height" value (the key of the same name on the wire).
        """
    @step_height.setter
    def step_height(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def step_time(self) -> float:
        """
        The "step_time" value (the key of the same name on the wire).
        """
    @step_time.setter
    def step_time(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
class SteadyStairsJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    A staircase from the start value to the end value, one step per step time.
    
    :param start_value: the "start_value" parameter of the request
    :param end_value: the "end_value" parameter of the request
    :param step_time: the "step_time" parameter of the request
    :param step_height: the "step_height" parameter of the request
    :param hold_time: the "hold_time" parameter of the request
    :param stability_tolerance: the "stability_tolerance" parameter of the request
    :param output_data_rate: the "output_data_rate" parameter of the request
    :param autorange: the "autorange" parameter of the request
    :param current_range: the "current_range" parameter of the request
    :param ir_drop: the "ir_drop" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "steady_stairs",
                    "parameters": {
                        "start_value": 0.0,
                        "end_value": 0.5,
                        "step_time": 1.0,
                        "step_height": 0.01,
                        "hold_time": 0.0,
                        "stability_tolerance": 0.0,
                        "output_data_rate": 10.0,
                        "autorange": true,
                        "current_range": 0.01,
                        "ir_drop": 0.0
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, start_value: typing.SupportsFloat | typing.SupportsIndex = 0.0, end_value: typing.SupportsFloat | typing.SupportsIndex = 0.5, step_time: typing.SupportsFloat | typing.SupportsIndex = 1.0, step_height: typing.SupportsFloat | typing.SupportsIndex = 0.01, hold_time: typing.SupportsFloat | typing.SupportsIndex = 0.0, stability_tolerance: typing.SupportsFloat | typing.SupportsIndex = 0.0, output_data_rate: typing.SupportsFloat | typing.SupportsIndex = 10.0, autorange: bool = True, current_range: typing.SupportsFloat | typing.SupportsIndex = 0.01, ir_drop: typing.SupportsFloat | typing.SupportsIndex = 0.0, stop_conditions: collections.abc.Sequence[stop.AbstractStopCondition] = [], meta_data: collections.abc.Mapping[str, str] = {}) -> None:
        """
        Create the job from its parameters.
        """
    def add_finished_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.JobInfo], None]) -> None:
        """
        Add a callback for the end of this job's live data; it receives the JobInfo.
        """
    def add_header_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.LiveDataHeader, velmar_link._velmar_link.JobInfo], None]) -> None:
        """
        Add a callback for the live-data header of this job.
        
        The callback receives a LiveDataHeader and the JobInfo; it runs on the link's I/O thread with the
        interpreter lock held. An exception it raises is reported as unraisable.
        """
    def add_live_data_collector(self) -> velmar_link._velmar_link.DcLiveDataCollector:
        """
        Collect this job's live data natively into a DcDataset; returns the DcLiveDataCollector.
        
        No Python code runs per event; read the dataset once the job has ended.
        """
    def add_rows_array_callback(self, callback: collections.abc.Callable[[numpy.typing.NDArray[numpy.float64]], None]) -> None:
        """
        Add a callback that receives each block of rows as a numpy array.
        
        The array is a new float64 array of shape (rows, columns); converting it is far cheaper than
        building lists.
        """
    def add_rows_callback(self, callback: collections.abc.Callable[[list[list[float]]], None]) -> None:
        """
        Add a callback for the blocks of live-data rows of this job.
        
        The callback receives a list of rows, each a list of floats in the order of the header's columns.
        """
    def get_number_of_live_data_callbacks(self) -> int:
        """
        The number of live-data callbacks added to this job.
        """
    @property
    def parameters(self) -> SteadyStairsParametersPy:
        """
        An object with the parameters that were passed to the constructor.
        """
class PogaParametersPy:
    """
    Parameters of :class:`velmar_link._velmar_link.meas.PogaJob`.
    """
    def __copy__(self) -> PogaParametersPy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> PogaParametersPy:
        """
        An independent copy.
        """
    def __init__(self, bias: typing.SupportsFloat | typing.SupportsIndex = 0.0, duration: typing.SupportsFloat | typing.SupportsIndex = 1.0, output_data_rate: typing.SupportsFloat | typing.SupportsIndex = 10.0, autorange: bool = True, current_range: typing.SupportsFloat | typing.SupportsIndex = 0.01) -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def autorange(self) -> bool:
        """
        The "autorange" value (the key of the same name on the wire).
        """
    @autorange.setter
    def autorange(self, arg0: bool) -> None:
        ...
    @property
    def bias(self) -> float:
        """
        The "bias" value (the key of the same name on the wire).
        """
    @bias.setter
    def bias(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def current_range(self) -> float:
        """
        The "current_range" value (the key of the same name on the wire).
        """
    @current_range.setter
    def current_range(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def duration(self) -> float:
        """
        The "duration" value (the key of the same name on the wire).
        """
    @duration.setter
    def duration(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def output_data_rate(self) -> float:
        """
        The "output_data_rate" value (the key of the same name on the wire).
        """
    @output_data_rate.setter
    def output_data_rate(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
class PogaJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Holds a constant bias for the duration.
    
    :param bias: the "bias" parameter of the request
    :param duration: the "duration" parameter of the request
    :param output_data_rate: the "output_data_rate" parameter of the request
    :param autorange: the "autorange" parameter of the request
    :param current_range: the "current_range" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "poga",
                    "parameters": {
                        "bias": 0.0,
                        "duration": 1.0,
                        "output_data_rate": 10.0,
                        "autorange": true,
                        "current_range": 0.01
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, bias: typing.SupportsFloat | typing.SupportsIndex = 0.0, duration: typing.SupportsFloat | typing.SupportsIndex = 1.0, output_data_rate: typing.SupportsFloat | typing.SupportsIndex = 10.0, autorange: bool = True, current_range: typing.SupportsFloat | typing.SupportsIndex = 0.01, stop_conditions: collections.abc.Sequence[stop.AbstractStopCondition] = [], meta_data: collections.abc.Mapping[str, str] = {}) -> None:
        """
        Create the job from its parameters.
        """
    def add_finished_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.JobInfo], None]) -> None:
        """
        Add a callback for the end of this job's live data; it receives the JobInfo.
        """
    def add_header_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.LiveDataHeader, velmar_link._velmar_link.JobInfo], None]) -> None:
        """
        Add a callback for the live-data header of this job.
        
        The callback receives a LiveDataHeader and the JobInfo; it runs on the link's I/O thread with the
        interpreter lock held. An exception it raises is reported as unraisable.
        """
    def add_live_data_collector(self) -> velmar_link._velmar_link.DcLiveDataCollector:
        """
        Collect this job's live data natively into a DcDataset; returns the DcLiveDataCollector.
        
        No Python code runs per event; read the dataset once the job has ended.
        """
    def add_rows_array_callback(self, callback: collections.abc.Callable[[numpy.typing.NDArray[numpy.float64]], None]) -> None:
        """
        Add a callback that receives each block of rows as a numpy array.
        
        The array is a new float64 array of shape (rows, columns); converting it is far cheaper than
        building lists.
        """
    def add_rows_callback(self, callback: collections.abc.Callable[[list[list[float]]], None]) -> None:
        """
        Add a callback for the blocks of live-data rows of this job.
        
        The callback receives a list of rows, each a list of floats in the order of the header's columns.
        """
    def get_number_of_live_data_callbacks(self) -> int:
        """
        The number of live-data callbacks added to this job.
        """
    @property
    def parameters(self) -> PogaParametersPy:
        """
        An object with the parameters that were passed to the constructor.
        """
class OcvParametersPy:
    """
    Parameters of :class:`velmar_link._velmar_link.meas.OcvJob`.
    """
    def __copy__(self) -> OcvParametersPy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> OcvParametersPy:
        """
        An independent copy.
        """
    def __init__(self, duration: typing.SupportsFloat | typing.SupportsIndex = 1.0, output_data_rate: typing.SupportsFloat | typing.SupportsIndex = 10.0) -> None:
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
    def output_data_rate(self) -> float:
        """
        The "output_data_rate" value (the key of the same name on the wire).
        """
    @output_data_rate.setter
    def output_data_rate(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
class OcvJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Measures the open-circuit voltage for the duration.
    
    :param duration: the "duration" parameter of the request
    :param output_data_rate: the "output_data_rate" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "ocv",
                    "parameters": {
                        "duration": 1.0,
                        "output_data_rate": 10.0
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, duration: typing.SupportsFloat | typing.SupportsIndex = 1.0, output_data_rate: typing.SupportsFloat | typing.SupportsIndex = 10.0, stop_conditions: collections.abc.Sequence[stop.AbstractStopCondition] = [], meta_data: collections.abc.Mapping[str, str] = {}) -> None:
        """
        Create the job from its parameters.
        """
    def add_finished_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.JobInfo], None]) -> None:
        """
        Add a callback for the end of this job's live data; it receives the JobInfo.
        """
    def add_header_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.LiveDataHeader, velmar_link._velmar_link.JobInfo], None]) -> None:
        """
        Add a callback for the live-data header of this job.
        
        The callback receives a LiveDataHeader and the JobInfo; it runs on the link's I/O thread with the
        interpreter lock held. An exception it raises is reported as unraisable.
        """
    def add_live_data_collector(self) -> velmar_link._velmar_link.DcLiveDataCollector:
        """
        Collect this job's live data natively into a DcDataset; returns the DcLiveDataCollector.
        
        No Python code runs per event; read the dataset once the job has ended.
        """
    def add_rows_array_callback(self, callback: collections.abc.Callable[[numpy.typing.NDArray[numpy.float64]], None]) -> None:
        """
        Add a callback that receives each block of rows as a numpy array.
        
        The array is a new float64 array of shape (rows, columns); converting it is far cheaper than
        building lists.
        """
    def add_rows_callback(self, callback: collections.abc.Callable[[list[list[float]]], None]) -> None:
        """
        Add a callback for the blocks of live-data rows of this job.
        
        The callback receives a list of rows, each a list of floats in the order of the header's columns.
        """
    def get_number_of_live_data_callbacks(self) -> int:
        """
        The number of live-data callbacks added to this job.
        """
    @property
    def parameters(self) -> OcvParametersPy:
        """
        An object with the parameters that were passed to the constructor.
        """
class NpvParametersPy:
    """
    Parameters of :class:`velmar_link._velmar_link.meas.NpvJob`.
    """
    def __copy__(self) -> NpvParametersPy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> NpvParametersPy:
        """
        An independent copy.
        """
    def __init__(self, base_value: typing.SupportsFloat | typing.SupportsIndex = 0.0, start_value: typing.SupportsFloat | typing.SupportsIndex = 0.0, step_value: typing.SupportsFloat | typing.SupportsIndex = 0.01, end_value: typing.SupportsFloat | typing.SupportsIndex = 0.5, step_time: typing.SupportsFloat | typing.SupportsIndex = 0.1, pulse_time: typing.SupportsFloat | typing.SupportsIndex = 0.05, output_data_rate: typing.SupportsFloat | typing.SupportsIndex = 100.0, current_range: typing.SupportsFloat | typing.SupportsIndex = 0.01) -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def base_value(self) -> float:
        """
        The "base_value" value (the key of the same name on the wire).
        """
    @base_value.setter
    def base_value(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def current_range(self) -> float:
        """
        The "current_range" value (the key of the same name on the wire).
        """
    @current_range.setter
    def current_range(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def end_value(self) -> float:
        """
        The "end_value" value (the key of the same name on the wire).
        """
    @end_value.setter
    def end_value(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def output_data_rate(self) -> float:
        """
        The "output_data_rate" value (the key of the same name on the wire).
        """
    @output_data_rate.setter
    def output_data_rate(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def pulse_time(self) -> float:
        """
        The "pulse_time" value (the key of the same name on the wire).
        """
    @pulse_time.setter
    def pulse_time(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def start_value(self) -> float:
        """
        The "start_value" value (the key of the same name on the wire).
        """
    @start_value.setter
    def start_value(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def step_time(self) -> float:
        """
        The "step_time" value (the key of the same name on the wire).
        """
    @step_time.setter
    def step_time(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def step_value(self) -> float:
        """
        The "step_value" value (the key of the same name on the wire).
        """
    @step_value.setter
    def step_value(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
class NpvJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Normal pulse voltammetry: pulses of growing height from a base value.
    
    :param base_value: the "base_value" parameter of the request
    :param start_value: the "start_value" parameter of the request
    :param step_value: the "step_value" parameter of the request
    :param end_value: the "end_value" parameter of the request
    :param step_time: the "step_time" parameter of the request
    :param pulse_time: the "pulse_time" parameter of the request
    :param output_data_rate: the "output_data_rate" parameter of the request
    :param current_range: the "current_range" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "npv",
                    "parameters": {
                        "base_value": 0.0,
                        "start_value": 0.0,
                        "step_value": 0.01,
                        "end_value": 0.5,
                        "step_time": 0.1,
                        "pulse_time": 0.05,
                        "output_data_rate": 100.0,
                        "current_range": 0.01
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, base_value: typing.SupportsFloat | typing.SupportsIndex = 0.0, start_value: typing.SupportsFloat | typing.SupportsIndex = 0.0, step_value: typing.SupportsFloat | typing.SupportsIndex = 0.01, end_value: typing.SupportsFloat | typing.SupportsIndex = 0.5, step_time: typing.SupportsFloat | typing.SupportsIndex = 0.1, pulse_time: typing.SupportsFloat | typing.SupportsIndex = 0.05, output_data_rate: typing.SupportsFloat | typing.SupportsIndex = 100.0, current_range: typing.SupportsFloat | typing.SupportsIndex = 0.01, stop_conditions: collections.abc.Sequence[stop.AbstractStopCondition] = [], meta_data: collections.abc.Mapping[str, str] = {}) -> None:
        """
        Create the job from its parameters.
        """
    def add_finished_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.JobInfo], None]) -> None:
        """
        Add a callback for the end of this job's live data; it receives the JobInfo.
        """
    def add_header_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.LiveDataHeader, velmar_link._velmar_link.JobInfo], None]) -> None:
        """
        Add a callback for the live-data header of this job.
        
        The callback receives a LiveDataHeader and the JobInfo; it runs on the link's I/O thread with the
        interpreter lock held. An exception it raises is reported as unraisable.
        """
    def add_live_data_collector(self) -> velmar_link._velmar_link.DcLiveDataCollector:
        """
        Collect this job's live data natively into a DcDataset; returns the DcLiveDataCollector.
        
        No Python code runs per event; read the dataset once the job has ended.
        """
    def add_rows_array_callback(self, callback: collections.abc.Callable[[numpy.typing.NDArray[numpy.float64]], None]) -> None:
        """
        Add a callback that receives each block of rows as a numpy array.
        
        The array is a new float64 array of shape (rows, columns); converting it is far cheaper than
        building lists.
        """
    def add_rows_callback(self, callback: collections.abc.Callable[[list[list[float]]], None]) -> None:
        """
        Add a callback for the blocks of live-data rows of this job.
        
        The callback receives a list of rows, each a list of floats in the order of the header's columns.
        """
    def get_number_of_live_data_callbacks(self) -> int:
        """
        The number of live-data callbacks added to this job.
        """
    @property
    def parameters(self) -> NpvParametersPy:
        """
        An object with the parameters that were passed to the constructor.
        """
class DpvParametersPy:
    """
    Parameters of :class:`velmar_link._velmar_link.meas.DpvJob`.
    """
    def __copy__(self) -> DpvParametersPy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> DpvParametersPy:
        """
        An independent copy.
        """
    def __init__(self, start_value: typing.SupportsFloat | typing.SupportsIndex = 0.0, step_value: typing.SupportsFloat | typing.SupportsIndex = 0.01, pulse_value: typing.SupportsFloat | typing.SupportsIndex = 0.05, end_value: typing.SupportsFloat | typing.SupportsIndex = 0.5, step_time: typing.SupportsFloat | typing.SupportsIndex = 0.1, pulse_time: typing.SupportsFloat | typing.SupportsIndex = 0.05, invert_pulse: bool = False, output_data_rate: typing.SupportsFloat | typing.SupportsIndex = 100.0, current_range: typing.SupportsFloat | typing.SupportsIndex = 0.01) -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def current_range(self) -> float:
        """
        The "current_range" value (the key of the same name on the wire).
        """
    @current_range.setter
    def current_range(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def end_value(self) -> float:
        """
        The "end_value" value (the key of the same name on the wire).
        """
    @end_value.setter
    def end_value(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def invert_pulse(self) -> bool:
        """
        The "invert_pulse" value (the key of the same name on the wire).
        """
    @invert_pulse.setter
    def invert_pulse(self, arg0: bool) -> None:
        ...
    @property
    def output_data_rate(self) -> float:
        """
        The "output_data_rate" value (the key of the same name on the wire).
        """
    @output_data_rate.setter
    def output_data_rate(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def pulse_time(self) -> float:
        """
        The "pulse_time" value (the key of the same name on the wire).
        """
    @pulse_time.setter
    def pulse_time(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def pulse_value(self) -> float:
        """
        The "pulse_value" value (the key of the same name on the wire).
        """
    @pulse_value.setter
    def pulse_value(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def start_value(self) -> float:
        """
        The "start_value" value (the key of the same name on the wire).
        """
    @start_value.setter
    def start_value(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def step_time(self) -> float:
        """
        The "step_time" value (the key of the same name on the wire).
        """
    @step_time.setter
    def step_time(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def step_value(self) -> float:
        """
        The "step_value" value (the key of the same name on the wire).
        """
    @step_value.setter
    def step_value(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
class DpvJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Differential pulse voltammetry: a staircase with a pulse at the end of each step.
    
    :param start_value: the "start_value" parameter of the request
    :param step_value: the "step_value" parameter of the request
    :param pulse_value: the "pulse_value" parameter of the request
    :param end_value: the "end_value" parameter of the request
    :param step_time: the "step_time" parameter of the request
    :param pulse_time: the "pulse_time" parameter of the request
    :param invert_pulse: the "invert_pulse" parameter of the request
    :param output_data_rate: the "output_data_rate" parameter of the request
    :param current_range: the "current_range" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "dpv",
                    "parameters": {
                        "start_value": 0.0,
                        "step_value": 0.01,
                        "pulse_value": 0.05,
                        "end_value": 0.5,
                        "step_time": 0.1,
                        "pulse_time": 0.05,
                        "invert_pulse": false,
                        "output_data_rate": 100.0,
                        "current_range": 0.01
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, start_value: typing.SupportsFloat | typing.SupportsIndex = 0.0, step_value: typing.SupportsFloat | typing.SupportsIndex = 0.01, pulse_value: typing.SupportsFloat | typing.SupportsIndex = 0.05, end_value: typing.SupportsFloat | typing.SupportsIndex = 0.5, step_time: typing.SupportsFloat | typing.SupportsIndex = 0.1, pulse_time: typing.SupportsFloat | typing.SupportsIndex = 0.05, invert_pulse: bool = False, output_data_rate: typing.SupportsFloat | typing.SupportsIndex = 100.0, current_range: typing.SupportsFloat | typing.SupportsIndex = 0.01, stop_conditions: collections.abc.Sequence[stop.AbstractStopCondition] = [], meta_data: collections.abc.Mapping[str, str] = {}) -> None:
        """
        Create the job from its parameters.
        """
    def add_finished_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.JobInfo], None]) -> None:
        """
        Add a callback for the end of this job's live data; it receives the JobInfo.
        """
    def add_header_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.LiveDataHeader, velmar_link._velmar_link.JobInfo], None]) -> None:
        """
        Add a callback for the live-data header of this job.
        
        The callback receives a LiveDataHeader and the JobInfo; it runs on the link's I/O thread with the
        interpreter lock held. An exception it raises is reported as unraisable.
        """
    def add_live_data_collector(self) -> velmar_link._velmar_link.DcLiveDataCollector:
        """
        Collect this job's live data natively into a DcDataset; returns the DcLiveDataCollector.
        
        No Python code runs per event; read the dataset once the job has ended.
        """
    def add_rows_array_callback(self, callback: collections.abc.Callable[[numpy.typing.NDArray[numpy.float64]], None]) -> None:
        """
        Add a callback that receives each block of rows as a numpy array.
        
        The array is a new float64 array of shape (rows, columns); converting it is far cheaper than
        building lists.
        """
    def add_rows_callback(self, callback: collections.abc.Callable[[list[list[float]]], None]) -> None:
        """
        Add a callback for the blocks of live-data rows of this job.
        
        The callback receives a list of rows, each a list of floats in the order of the header's columns.
        """
    def get_number_of_live_data_callbacks(self) -> int:
        """
        The number of live-data callbacks added to this job.
        """
    @property
    def parameters(self) -> DpvParametersPy:
        """
        An object with the parameters that were passed to the constructor.
        """
class SwvParametersPy:
    """
    Parameters of :class:`velmar_link._velmar_link.meas.SwvJob`.
    """
    def __copy__(self) -> SwvParametersPy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> SwvParametersPy:
        """
        An independent copy.
        """
    def __init__(self, start_value: typing.SupportsFloat | typing.SupportsIndex = 0.0, step_value: typing.SupportsFloat | typing.SupportsIndex = 0.01, amplitude: typing.SupportsFloat | typing.SupportsIndex = 0.025, end_value: typing.SupportsFloat | typing.SupportsIndex = 0.5, period: typing.SupportsFloat | typing.SupportsIndex = 0.1, output_data_rate: typing.SupportsFloat | typing.SupportsIndex = 100.0, current_range: typing.SupportsFloat | typing.SupportsIndex = 0.01) -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def amplitude(self) -> float:
        """
        The "amplitude" value (the key of the same name on the wire).
        """
    @amplitude.setter
    def amplitude(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def current_range(self) -> float:
        """
        The "current_range" value (the key of the same name on the wire).
        """
    @current_range.setter
    def current_range(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def end_value(self) -> float:
        """
        The "end_value" value (the key of the same name on the wire).
        """
    @end_value.setter
    def end_value(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def output_data_rate(self) -> float:
        """
        The "output_data_rate" value (the key of the same name on the wire).
        """
    @output_data_rate.setter
    def output_data_rate(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def period(self) -> float:
        """
        The "period" value (the key of the same name on the wire).
        """
    @period.setter
    def period(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def start_value(self) -> float:
        """
        The "start_value" value (the key of the same name on the wire).
        """
    @start_value.setter
    def start_value(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def step_value(self) -> float:
        """
        The "step_value" value (the key of the same name on the wire).
        """
    @step_value.setter
    def step_value(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
class SwvJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Square wave voltammetry: a staircase with a symmetric square wave on each step.
    
    :param start_value: the "start_value" parameter of the request
    :param step_value: the "step_value" parameter of the request
    :param amplitude: the "amplitude" parameter of the request
    :param end_value: the "end_value" parameter of the request
    :param period: the "period" parameter of the request
    :param output_data_rate: the "output_data_rate" parameter of the request
    :param current_range: the "current_range" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "swv",
                    "parameters": {
                        "start_value": 0.0,
                        "step_value": 0.01,
                        "amplitude": 0.025,
                        "end_value": 0.5,
                        "period": 0.1,
                        "output_data_rate": 100.0,
                        "current_range": 0.01
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, start_value: typing.SupportsFloat | typing.SupportsIndex = 0.0, step_value: typing.SupportsFloat | typing.SupportsIndex = 0.01, amplitude: typing.SupportsFloat | typing.SupportsIndex = 0.025, end_value: typing.SupportsFloat | typing.SupportsIndex = 0.5, period: typing.SupportsFloat | typing.SupportsIndex = 0.1, output_data_rate: typing.SupportsFloat | typing.SupportsIndex = 100.0, current_range: typing.SupportsFloat | typing.SupportsIndex = 0.01, stop_conditions: collections.abc.Sequence[stop.AbstractStopCondition] = [], meta_data: collections.abc.Mapping[str, str] = {}) -> None:
        """
        Create the job from its parameters.
        """
    def add_finished_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.JobInfo], None]) -> None:
        """
        Add a callback for the end of this job's live data; it receives the JobInfo.
        """
    def add_header_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.LiveDataHeader, velmar_link._velmar_link.JobInfo], None]) -> None:
        """
        Add a callback for the live-data header of this job.
        
        The callback receives a LiveDataHeader and the JobInfo; it runs on the link's I/O thread with the
        interpreter lock held. An exception it raises is reported as unraisable.
        """
    def add_live_data_collector(self) -> velmar_link._velmar_link.DcLiveDataCollector:
        """
        Collect this job's live data natively into a DcDataset; returns the DcLiveDataCollector.
        
        No Python code runs per event; read the dataset once the job has ended.
        """
    def add_rows_array_callback(self, callback: collections.abc.Callable[[numpy.typing.NDArray[numpy.float64]], None]) -> None:
        """
        Add a callback that receives each block of rows as a numpy array.
        
        The array is a new float64 array of shape (rows, columns); converting it is far cheaper than
        building lists.
        """
    def add_rows_callback(self, callback: collections.abc.Callable[[list[list[float]]], None]) -> None:
        """
        Add a callback for the blocks of live-data rows of this job.
        
        The callback receives a list of rows, each a list of floats in the order of the header's columns.
        """
    def get_number_of_live_data_callbacks(self) -> int:
        """
        The number of live-data callbacks added to this job.
        """
    @property
    def parameters(self) -> SwvParametersPy:
        """
        An object with the parameters that were passed to the constructor.
        """
class WaveParametersPy:
    """
    Parameters of :class:`velmar_link._velmar_link.meas.WaveJob`.
    """
    def __copy__(self) -> WaveParametersPy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> WaveParametersPy:
        """
        An independent copy.
        """
    def __init__(self, output_data_rate: typing.SupportsFloat | typing.SupportsIndex = 10.0, value_rate: typing.SupportsFloat | typing.SupportsIndex = 10.0, repetitions: typing.SupportsFloat | typing.SupportsIndex = 1.0, current_range: typing.SupportsFloat | typing.SupportsIndex = 0.01, values: collections.abc.Sequence[typing.SupportsFloat | typing.SupportsIndex] = [], bias: typing.SupportsFloat | typing.SupportsIndex = 0.0) -> None:
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
    def current_range(self) -> float:
        """
        The "current_range" value (the key of the same name on the wire).
        """
    @current_range.setter
    def current_range(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def output_data_rate(self) -> float:
        """
        The "output_data_rate" value (the key of the same name on the wire).
        """
    @output_data_rate.setter
    def output_data_rate(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def repetitions(self) -> float:
        """
        The "repetitions" value (the key of the same name on the wire).
        """
    @repetitions.setter
    def repetitions(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def value_rate(self) -> float:
        """
        The "value_rate" value (the key of the same name on the wire).
        """
    @value_rate.setter
    def value_rate(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def values(self) -> list[float]:
        """
        The "values" value (the key of the same name on the wire).
        """
    @values.setter
    def values(self, arg0: collections.abc.Sequence[typing.SupportsFloat | typing.SupportsIndex]) -> None:
        ...
class WaveJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Plays a list of values at the value rate.
    
    :param output_data_rate: the "output_data_rate" parameter of the request
    :param value_rate: the "value_rate" parameter of the request
    :param repetitions: the "repetitions" parameter of the request
    :param current_range: the "current_range" parameter of the request
    :param values: the "values" parameter of the request
    :param bias: the "bias" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "wave",
                    "parameters": {
                        "output_data_rate": 10.0,
                        "value_rate": 10.0,
                        "repetitions": 1.0,
                        "current_range": 0.01,
                        "values": [],
                        "bias": 0.0
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, output_data_rate: typing.SupportsFloat | typing.SupportsIndex = 10.0, value_rate: typing.SupportsFloat | typing.SupportsIndex = 10.0, repetitions: typing.SupportsFloat | typing.SupportsIndex = 1.0, current_range: typing.SupportsFloat | typing.SupportsIndex = 0.01, values: collections.abc.Sequence[typing.SupportsFloat | typing.SupportsIndex] = [], bias: typing.SupportsFloat | typing.SupportsIndex = 0.0, stop_conditions: collections.abc.Sequence[stop.AbstractStopCondition] = [], meta_data: collections.abc.Mapping[str, str] = {}) -> None:
        """
        Create the job from its parameters.
        """
    def add_finished_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.JobInfo], None]) -> None:
        """
        Add a callback for the end of this job's live data; it receives the JobInfo.
        """
    def add_header_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.LiveDataHeader, velmar_link._velmar_link.JobInfo], None]) -> None:
        """
        Add a callback for the live-data header of this job.
        
        The callback receives a LiveDataHeader and the JobInfo; it runs on the link's I/O thread with the
        interpreter lock held. An exception it raises is reported as unraisable.
        """
    def add_live_data_collector(self) -> velmar_link._velmar_link.DcLiveDataCollector:
        """
        Collect this job's live data natively into a DcDataset; returns the DcLiveDataCollector.
        
        No Python code runs per event; read the dataset once the job has ended.
        """
    def add_rows_array_callback(self, callback: collections.abc.Callable[[numpy.typing.NDArray[numpy.float64]], None]) -> None:
        """
        Add a callback that receives each block of rows as a numpy array.
        
        The array is a new float64 array of shape (rows, columns); converting it is far cheaper than
        building lists.
        """
    def add_rows_callback(self, callback: collections.abc.Callable[[list[list[float]]], None]) -> None:
        """
        Add a callback for the blocks of live-data rows of this job.
        
        The callback receives a list of rows, each a list of floats in the order of the header's columns.
        """
    def get_number_of_live_data_callbacks(self) -> int:
        """
        The number of live-data callbacks added to this job.
        """
    @property
    def parameters(self) -> WaveParametersPy:
        """
        An object with the parameters that were passed to the constructor.
        """
class WaveFileParametersPy:
    """
    Parameters of :class:`velmar_link._velmar_link.meas.WaveFileJob`.
    """
    def __copy__(self) -> WaveFileParametersPy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> WaveFileParametersPy:
        """
        An independent copy.
        """
    def __init__(self, output_data_rate: typing.SupportsFloat | typing.SupportsIndex = 10.0, value_rate: typing.SupportsFloat | typing.SupportsIndex = 10.0, repetitions: typing.SupportsFloat | typing.SupportsIndex = 1.0, current_range: typing.SupportsFloat | typing.SupportsIndex = 0.01, resource_id: str = '', bias: typing.SupportsFloat | typing.SupportsIndex = 0.0) -> None:
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
    def current_range(self) -> float:
        """
        The "current_range" value (the key of the same name on the wire).
        """
    @current_range.setter
    def current_range(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def output_data_rate(self) -> float:
        """
        The "output_data_rate" value (the key of the same name on the wire).
        """
    @output_data_rate.setter
    def output_data_rate(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def repetitions(self) -> float:
        """
        The "repetitions" value (the key of the same name on the wire).
        """
    @repetitions.setter
    def repetitions(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def resource_id(self) -> str:
        """
        The "resource_id" value (the key of the same name on the wire).
        """
    @resource_id.setter
    def resource_id(self, arg0: str) -> None:
        ...
    @property
    def value_rate(self) -> float:
        """
        The "value_rate" value (the key of the same name on the wire).
        """
    @value_rate.setter
    def value_rate(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
class WaveFileJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Plays the values of a wave resource on the device at the value rate.
    
    :param output_data_rate: the "output_data_rate" parameter of the request
    :param value_rate: the "value_rate" parameter of the request
    :param repetitions: the "repetitions" parameter of the request
    :param current_range: the "current_range" parameter of the request
    :param resource_id: the "resource_id" parameter of the request
    :param bias: the "bias" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "wave_file",
                    "parameters": {
                        "output_data_rate": 10.0,
                        "value_rate": 10.0,
                        "repetitions": 1.0,
                        "current_range": 0.01,
                        "resource_id": "",
                        "bias": 0.0
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, output_data_rate: typing.SupportsFloat | typing.SupportsIndex = 10.0, value_rate: typing.SupportsFloat | typing.SupportsIndex = 10.0, repetitions: typing.SupportsFloat | typing.SupportsIndex = 1.0, current_range: typing.SupportsFloat | typing.SupportsIndex = 0.01, resource_id: str = '', bias: typing.SupportsFloat | typing.SupportsIndex = 0.0, stop_conditions: collections.abc.Sequence[stop.AbstractStopCondition] = [], meta_data: collections.abc.Mapping[str, str] = {}) -> None:
        """
        Create the job from its parameters.
        """
    def add_finished_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.JobInfo], None]) -> None:
        """
        Add a callback for the end of this job's live data; it receives the JobInfo.
        """
    def add_header_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.LiveDataHeader, velmar_link._velmar_link.JobInfo], None]) -> None:
        """
        Add a callback for the live-data header of this job.
        
        The callback receives a LiveDataHeader and the JobInfo; it runs on the link's I/O thread with the
        interpreter lock held. An exception it raises is reported as unraisable.
        """
    def add_live_data_collector(self) -> velmar_link._velmar_link.DcLiveDataCollector:
        """
        Collect this job's live data natively into a DcDataset; returns the DcLiveDataCollector.
        
        No Python code runs per event; read the dataset once the job has ended.
        """
    def add_rows_array_callback(self, callback: collections.abc.Callable[[numpy.typing.NDArray[numpy.float64]], None]) -> None:
        """
        Add a callback that receives each block of rows as a numpy array.
        
        The array is a new float64 array of shape (rows, columns); converting it is far cheaper than
        building lists.
        """
    def add_rows_callback(self, callback: collections.abc.Callable[[list[list[float]]], None]) -> None:
        """
        Add a callback for the blocks of live-data rows of this job.
        
        The callback receives a list of rows, each a list of floats in the order of the header's columns.
        """
    def get_number_of_live_data_callbacks(self) -> int:
        """
        The number of live-data callbacks added to this job.
        """
    @property
    def parameters(self) -> WaveFileParametersPy:
        """
        An object with the parameters that were passed to the constructor.
        """
class EisFrequencyRangeGenerate:
    """
    Generated frequencies: logarithmically equidistant steps (points_per_decade_upper) between 66 Hz and the maximum frequency, the density changing linearly down to points_per_decade_lower at the minimum frequency.
    """
    def __copy__(self) -> EisFrequencyRangeGenerate:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> EisFrequencyRangeGenerate:
        """
        An independent copy.
        """
    def __init__(self, type: str = 'generate', min_frequency: typing.SupportsFloat | typing.SupportsIndex = 100.0, max_frequency: typing.SupportsFloat | typing.SupportsIndex = 1000000.0, start_frequency: typing.SupportsFloat | typing.SupportsIndex = 10000.0, points_per_decade_upper: typing.SupportsInt | typing.SupportsIndex = 20, points_per_decade_lower: typing.SupportsInt | typing.SupportsIndex = 5, pre_duration: typing.SupportsFloat | typing.SupportsIndex = 0.1, pre_waves: typing.SupportsInt | typing.SupportsIndex = 1, meas_duration: typing.SupportsFloat | typing.SupportsIndex = 1.0, meas_waves: typing.SupportsInt | typing.SupportsIndex = 5, amplitude: typing.SupportsFloat | typing.SupportsIndex = 0.01) -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def amplitude(self) -> float:
        """
        The "amplitude" value (the key of the same name on the wire).
        """
    @amplitude.setter
    def amplitude(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def max_frequency(self) -> float:
        """
        The "max_frequency" value (the key of the same name on the wire).
        """
    @max_frequency.setter
    def max_frequency(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def meas_duration(self) -> float:
        """
        The "meas_duration" value (the key of the same name on the wire).
        """
    @meas_duration.setter
    def meas_duration(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def meas_waves(self) -> int:
        """
        The "meas_waves" value (the key of the same name on the wire).
        """
    @meas_waves.setter
    def meas_waves(self, arg0: typing.SupportsInt | typing.SupportsIndex) -> None:
        ...
    @property
    def min_frequency(self) -> float:
        """
        The "min_frequency" value (the key of the same name on the wire).
        """
    @min_frequency.setter
    def min_frequency(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def points_per_decade_lower(self) -> int:
        """
        The "points_per_decade_lower" value (the key of the same name on the wire).
        """
    @points_per_decade_lower.setter
    def points_per_decade_lower(self, arg0: typing.SupportsInt | typing.SupportsIndex) -> None:
        ...
    @property
    def points_per_decade_upper(self) -> int:
        """
        The "points_per_decade_upper" value (the key of the same name on the wire).
        """
    @points_per_decade_upper.setter
    def points_per_decade_upper(self, arg0: typing.SupportsInt | typing.SupportsIndex) -> None:
        ...
    @property
    def pre_duration(self) -> float:
        """
        The "pre_duration" value (the key of the same name on the wire).
        """
    @pre_duration.setter
    def pre_duration(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def pre_waves(self) -> int:
        """
        The "pre_waves" value (the key of the same name on the wire).
        """
    @pre_waves.setter
    def pre_waves(self, arg0: typing.SupportsInt | typing.SupportsIndex) -> None:
        ...
    @property
    def start_frequency(self) -> float:
        """
        The "start_frequency" value (the key of the same name on the wire).
        """
    @start_frequency.setter
    def start_frequency(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def type(self) -> str:
        """
        The "type" value (the key of the same name on the wire).
        """
    @type.setter
    def type(self, arg0: str) -> None:
        ...
class EisMultisineFrequencyRangeGenerate:
    """
    Generated frequencies of a multisine measurement.
    """
    def __copy__(self) -> EisMultisineFrequencyRangeGenerate:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> EisMultisineFrequencyRangeGenerate:
        """
        An independent copy.
        """
    def __init__(self, type: str = 'generate', min_frequency: typing.SupportsFloat | typing.SupportsIndex = 100.0, max_frequency: typing.SupportsFloat | typing.SupportsIndex = 1000000.0, start_frequency: typing.SupportsFloat | typing.SupportsIndex = 10000.0, points_per_decade_upper: typing.SupportsInt | typing.SupportsIndex = 20, points_per_decade_lower: typing.SupportsInt | typing.SupportsIndex = 5, pre_duration: typing.SupportsFloat | typing.SupportsIndex = 0.1, pre_waves: typing.SupportsInt | typing.SupportsIndex = 1, meas_duration: typing.SupportsFloat | typing.SupportsIndex = 1.0, meas_waves: typing.SupportsInt | typing.SupportsIndex = 5, amplitude: typing.SupportsFloat | typing.SupportsIndex = 0.01, multisine_pre_waves: typing.SupportsInt | typing.SupportsIndex = 1, multisine_meas_waves: typing.SupportsInt | typing.SupportsIndex = 5, multisine_decades: typing.SupportsInt | typing.SupportsIndex = 1, multisine_starting_harmonic: typing.SupportsInt | typing.SupportsIndex = 1) -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def amplitude(self) -> float:
        """
        The "amplitude" value (the key of the same name on the wire).
        """
    @amplitude.setter
    def amplitude(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def max_frequency(self) -> float:
        """
        The "max_frequency" value (the key of the same name on the wire).
        """
    @max_frequency.setter
    def max_frequency(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def meas_duration(self) -> float:
        """
        The "meas_duration" value (the key of the same name on the wire).
        """
    @meas_duration.setter
    def meas_duration(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def meas_waves(self) -> int:
        """
        The "meas_waves" value (the key of the same name on the wire).
        """
    @meas_waves.setter
    def meas_waves(self, arg0: typing.SupportsInt | typing.SupportsIndex) -> None:
        ...
    @property
    def min_frequency(self) -> float:
        """
        The "min_frequency" value (the key of the same name on the wire).
        """
    @min_frequency.setter
    def min_frequency(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def multisine_decades(self) -> int:
        """
        The "multisine_decades" value (the key of the same name on the wire).
        """
    @multisine_decades.setter
    def multisine_decades(self, arg0: typing.SupportsInt | typing.SupportsIndex) -> None:
        ...
    @property
    def multisine_meas_waves(self) -> int:
        """
        The "multisine_meas_waves" value (the key of the same name on the wire).
        """
    @multisine_meas_waves.setter
    def multisine_meas_waves(self, arg0: typing.SupportsInt | typing.SupportsIndex) -> None:
        ...
    @property
    def multisine_pre_waves(self) -> int:
        """
        The "multisine_pre_waves" value (the key of the same name on the wire).
        """
    @multisine_pre_waves.setter
    def multisine_pre_waves(self, arg0: typing.SupportsInt | typing.SupportsIndex) -> None:
        ...
    @property
    def multisine_starting_harmonic(self) -> int:
        """
        The "multisine_starting_harmonic" value (the key of the same name on the wire).
        """
    @multisine_starting_harmonic.setter
    def multisine_starting_harmonic(self, arg0: typing.SupportsInt | typing.SupportsIndex) -> None:
        ...
    @property
    def points_per_decade_lower(self) -> int:
        """
        The "points_per_decade_lower" value (the key of the same name on the wire).
        """
    @points_per_decade_lower.setter
    def points_per_decade_lower(self, arg0: typing.SupportsInt | typing.SupportsIndex) -> None:
        ...
    @property
    def points_per_decade_upper(self) -> int:
        """
        The "points_per_decade_upper" value (the key of the same name on the wire).
        """
    @points_per_decade_upper.setter
    def points_per_decade_upper(self, arg0: typing.SupportsInt | typing.SupportsIndex) -> None:
        ...
    @property
    def pre_duration(self) -> float:
        """
        The "pre_duration" value (the key of the same name on the wire).
        """
    @pre_duration.setter
    def pre_duration(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def pre_waves(self) -> int:
        """
        The "pre_waves" value (the key of the same name on the wire).
        """
    @pre_waves.setter
    def pre_waves(self, arg0: typing.SupportsInt | typing.SupportsIndex) -> None:
        ...
    @property
    def start_frequency(self) -> float:
        """
        The "start_frequency" value (the key of the same name on the wire).
        """
    @start_frequency.setter
    def start_frequency(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def type(self) -> str:
        """
        The "type" value (the key of the same name on the wire).
        """
    @type.setter
    def type(self, arg0: str) -> None:
        ...
class EisParametersFrequencyTableEntry:
    """
    One point of a frequency table with its timing.
    """
    def __copy__(self) -> EisParametersFrequencyTableEntry:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> EisParametersFrequencyTableEntry:
        """
        An independent copy.
        """
    def __init__(self, frequency: typing.SupportsFloat | typing.SupportsIndex = 1000.0, amplitude: typing.SupportsFloat | typing.SupportsIndex = 0.01, pre_duration: typing.SupportsFloat | typing.SupportsIndex = 0.1, pre_waves: typing.SupportsInt | typing.SupportsIndex = 1, meas_duration: typing.SupportsFloat | typing.SupportsIndex = 1.0, meas_waves: typing.SupportsInt | typing.SupportsIndex = 5) -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def amplitude(self) -> float:
        """
        The "amplitude" value (the key of the same name on the wire).
        """
    @amplitude.setter
    def amplitude(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def frequency(self) -> float:
        """
        The "frequency" value (the key of the same name on the wire).
        """
    @frequency.setter
    def frequency(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def meas_duration(self) -> float:
        """
        The "meas_duration" value (the key of the same name on the wire).
        """
    @meas_duration.setter
    def meas_duration(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def meas_waves(self) -> int:
        """
        The "meas_waves" value (the key of the same name on the wire).
        """
    @meas_waves.setter
    def meas_waves(self, arg0: typing.SupportsInt | typing.SupportsIndex) -> None:
        ...
    @property
    def pre_duration(self) -> float:
        """
        The "pre_duration" value (the key of the same name on the wire).
        """
    @pre_duration.setter
    def pre_duration(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def pre_waves(self) -> int:
        """
        The "pre_waves" value (the key of the same name on the wire).
        """
    @pre_waves.setter
    def pre_waves(self, arg0: typing.SupportsInt | typing.SupportsIndex) -> None:
        ...
class EisParametersFrequencyTable:
    """
    The frequency table of :class:`velmar_link.meas.EisFrequencyTableJob`.
    """
    def __copy__(self) -> EisParametersFrequencyTable:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> EisParametersFrequencyTable:
        """
        An independent copy.
        """
    def __init__(self, type: str = 'table', spectrum: collections.abc.Sequence[EisParametersFrequencyTableEntry] = []) -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def spectrum(self) -> list[EisParametersFrequencyTableEntry]:
        """
        The "spectrum" value (the key of the same name on the wire).
        """
    @spectrum.setter
    def spectrum(self, arg0: collections.abc.Sequence[EisParametersFrequencyTableEntry]) -> None:
        ...
    @property
    def type(self) -> str:
        """
        The "type" value (the key of the same name on the wire).
        """
    @type.setter
    def type(self, arg0: str) -> None:
        ...
class GeisVaParametersFrequencyTable:
    """
    The frequency table of :class:`velmar_link.meas.GeisVaFrequencyTableJob`.
    """
    def __copy__(self) -> GeisVaParametersFrequencyTable:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> GeisVaParametersFrequencyTable:
        """
        An independent copy.
        """
    def __init__(self, type: str = 'table', spectrum: collections.abc.Sequence[EisParametersFrequencyTableEntry] = []) -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def spectrum(self) -> list[EisParametersFrequencyTableEntry]:
        """
        The "spectrum" value (the key of the same name on the wire).
        """
    @spectrum.setter
    def spectrum(self, arg0: collections.abc.Sequence[EisParametersFrequencyTableEntry]) -> None:
        ...
    @property
    def type(self) -> str:
        """
        The "type" value (the key of the same name on the wire).
        """
    @type.setter
    def type(self, arg0: str) -> None:
        ...
class EisMultiSineTableEntry:
    """
    One harmonic of a multisine table.
    """
    def __copy__(self) -> EisMultiSineTableEntry:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> EisMultiSineTableEntry:
        """
        An independent copy.
        """
    def __init__(self, harmonic: typing.SupportsInt | typing.SupportsIndex = 1, amplitude: typing.SupportsFloat | typing.SupportsIndex = 0.01) -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def amplitude(self) -> float:
        """
        The "amplitude" value (the key of the same name on the wire).
        """
    @amplitude.setter
    def amplitude(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def harmonic(self) -> int:
        """
        The "harmonic" value (the key of the same name on the wire).
        """
    @harmonic.setter
    def harmonic(self, arg0: typing.SupportsInt | typing.SupportsIndex) -> None:
        ...
class EisMultiSineTable:
    """
    The multisine table: harmonics of one fundamental frequency with their timing.
    """
    def __copy__(self) -> EisMultiSineTable:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> EisMultiSineTable:
        """
        An independent copy.
        """
    def __init__(self, type: str = 'table', fundamental_frequency: typing.SupportsFloat | typing.SupportsIndex = 1.0, harmonics: collections.abc.Sequence[EisMultiSineTableEntry] = [], pre_duration: typing.SupportsFloat | typing.SupportsIndex = 0.1, pre_waves: typing.SupportsInt | typing.SupportsIndex = 1, meas_duration: typing.SupportsFloat | typing.SupportsIndex = 1.0, meas_waves: typing.SupportsInt | typing.SupportsIndex = 5) -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def fundamental_frequency(self) -> float:
        """
        The "fundamental_frequency" value (the key of the same name on the wire).
        """
    @fundamental_frequency.setter
    def fundamental_frequency(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def harmonics(self) -> list[EisMultiSineTableEntry]:
        """
        The "harmonics" value (the key of the same name on the wire).
        """
    @harmonics.setter
    def harmonics(self, arg0: collections.abc.Sequence[EisMultiSineTableEntry]) -> None:
        ...
    @property
    def meas_duration(self) -> float:
        """
        The "meas_duration" value (the key of the same name on the wire).
        """
    @meas_duration.setter
    def meas_duration(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def meas_waves(self) -> int:
        """
        The "meas_waves" value (the key of the same name on the wire).
        """
    @meas_waves.setter
    def meas_waves(self, arg0: typing.SupportsInt | typing.SupportsIndex) -> None:
        ...
    @property
    def pre_duration(self) -> float:
        """
        The "pre_duration" value (the key of the same name on the wire).
        """
    @pre_duration.setter
    def pre_duration(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def pre_waves(self) -> int:
        """
        The "pre_waves" value (the key of the same name on the wire).
        """
    @pre_waves.setter
    def pre_waves(self, arg0: typing.SupportsInt | typing.SupportsIndex) -> None:
        ...
    @property
    def type(self) -> str:
        """
        The "type" value (the key of the same name on the wire).
        """
    @type.setter
    def type(self, arg0: str) -> None:
        ...
class EisParametersGeneratePy:
    """
    Parameters of :class:`velmar_link._velmar_link.meas.EisGenerateJob`.
    """
    def __copy__(self) -> EisParametersGeneratePy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> EisParametersGeneratePy:
        """
        An independent copy.
        """
    def __init__(self, bias: typing.SupportsFloat | typing.SupportsIndex = 0.0, drift_correction: velmar_link._velmar_link.DriftCorrection | None = None, frequency_range: EisFrequencyRangeGenerate = ...) -> None:
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
    def drift_correction(self) -> velmar_link._velmar_link.DriftCorrection | None:
        """
        The "drift_correction" value (the key of the same name on the wire).
        """
    @drift_correction.setter
    def drift_correction(self, arg0: velmar_link._velmar_link.DriftCorrection | None) -> None:
        ...
    @property
    def frequency_range(self) -> EisFrequencyRangeGenerate:
        """
        The "frequency_range" value (the key of the same name on the wire).
        """
    @frequency_range.setter
    def frequency_range(self, arg0: EisFrequencyRangeGenerate) -> None:
        ...
class EisGenerateJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Potentiostatic impedance spectroscopy over generated frequencies.
    
    "bias" is the DC operating point; "drift_correction" (a :class:`velmar_link.DriftCorrection` or None for the device default) selects how much drift correction is applied.
    
    Live data: add callbacks with :meth:`add_header_callback`, :meth:`add_row_callback`, :meth:`add_waves_callback` and :meth:`add_finished_callback` before the job is run.
    
    :param bias: the "bias" parameter of the request
    :param drift_correction: the "drift_correction" parameter of the request
    :param frequency_range: the "frequency_range" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "eis",
                    "parameters": {
                        "bias": 0.0,
                        "frequency_range": {
                            "type": "generate",
                            "min_frequency": 100.0,
                            "max_frequency": 1000000.0,
                            "start_frequency": 10000.0,
                            "points_per_decade_upper": 20,
                            "points_per_decade_lower": 5,
                            "pre_duration": 0.1,
                            "pre_waves": 1,
                            "meas_duration": 1.0,
                            "meas_waves": 5,
                            "amplitude": 0.01
                        }
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, bias: typing.SupportsFloat | typing.SupportsIndex = 0.0, drift_correction: velmar_link._velmar_link.DriftCorrection | None = None, frequency_range: EisFrequencyRangeGenerate = ..., meta_data: collections.abc.Mapping[str, str] = {}) -> None:
        """
        Create the job from its parameters.
        """
    def add_finished_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.JobInfo], None]) -> None:
        """
        Add a callback for the end of this job's live data; it receives the JobInfo.
        """
    def add_header_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.LiveDataHeaderEis, velmar_link._velmar_link.JobInfo], None]) -> None:
        """
        Add a callback for the live-data header of this job.
        
        The callback receives a :class:`velmar_link.LiveDataHeaderEis` and the :class:`velmar_link.JobInfo`;
        it runs on the link's I/O thread with the interpreter lock held. An exception it raises is
        reported as unraisable.
        """
    def add_live_data_collector(self) -> velmar_link._velmar_link.AcLiveDataCollector:
        """
        Collect this job's live data natively into an EisDataset; returns the AcLiveDataCollector.
        
        No Python code runs per event; read the dataset once the job has ended.
        """
    def add_row_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.LiveDataRowEis], None]) -> None:
        """
        Add a callback for each frequency point of this job.
        
        The callback receives a :class:`velmar_link.LiveDataRowEis` that fits the last header. A row that
        does not fit it fails the job instead (JSON_MALFORMED, "the AC data table does not match the
        declared ...").
        """
    def add_waves_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.LiveDataWavesEis], None]) -> None:
        """
        Add a callback for the preview fragments of the waves being recorded.
        
        The callback receives a :class:`velmar_link.LiveDataWavesEis`; the fragments are meant for
        display and are not needed to build the result.
        """
    def get_number_of_live_data_callbacks(self) -> int:
        """
        The number of live-data callbacks added to this job.
        """
    @property
    def parameters(self) -> EisParametersGeneratePy:
        """
        An object with the parameters that were passed to the constructor.
        """
class EisParametersFrequencyTablePy:
    """
    Parameters of :class:`velmar_link._velmar_link.meas.EisFrequencyTableJob`.
    """
    def __copy__(self) -> EisParametersFrequencyTablePy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> EisParametersFrequencyTablePy:
        """
        An independent copy.
        """
    def __init__(self, bias: typing.SupportsFloat | typing.SupportsIndex = 0.0, drift_correction: velmar_link._velmar_link.DriftCorrection | None = None, frequency_range: EisParametersFrequencyTable = ...) -> None:
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
    def drift_correction(self) -> velmar_link._velmar_link.DriftCorrection | None:
        """
        The "drift_correction" value (the key of the same name on the wire).
        """
    @drift_correction.setter
    def drift_correction(self, arg0: velmar_link._velmar_link.DriftCorrection | None) -> None:
        ...
    @property
    def frequency_range(self) -> EisParametersFrequencyTable:
        """
        The "frequency_range" value (the key of the same name on the wire).
        """
    @frequency_range.setter
    def frequency_range(self, arg0: EisParametersFrequencyTable) -> None:
        ...
class EisFrequencyTableJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Potentiostatic impedance spectroscopy over a frequency table.
    
    "bias" is the DC operating point; "drift_correction" (a :class:`velmar_link.DriftCorrection` or None for the device default) selects how much drift correction is applied.
    
    Live data: add callbacks with :meth:`add_header_callback`, :meth:`add_row_callback`, :meth:`add_waves_callback` and :meth:`add_finished_callback` before the job is run.
    
    :param bias: the "bias" parameter of the request
    :param drift_correction: the "drift_correction" parameter of the request
    :param frequency_range: the "frequency_range" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "eis_table",
                    "parameters": {
                        "bias": 0.0,
                        "frequency_range": {
                            "type": "table",
                            "spectrum": []
                        }
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, bias: typing.SupportsFloat | typing.SupportsIndex = 0.0, drift_correction: velmar_link._velmar_link.DriftCorrection | None = None, frequency_range: EisParametersFrequencyTable = ..., meta_data: collections.abc.Mapping[str, str] = {}) -> None:
        """
        Create the job from its parameters.
        """
    def add_finished_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.JobInfo], None]) -> None:
        """
        Add a callback for the end of this job's live data; it receives the JobInfo.
        """
    def add_header_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.LiveDataHeaderEis, velmar_link._velmar_link.JobInfo], None]) -> None:
        """
        Add a callback for the live-data header of this job.
        
        The callback receives a :class:`velmar_link.LiveDataHeaderEis` and the :class:`velmar_link.JobInfo`;
        it runs on the link's I/O thread with the interpreter lock held. An exception it raises is
        reported as unraisable.
        """
    def add_live_data_collector(self) -> velmar_link._velmar_link.AcLiveDataCollector:
        """
        Collect this job's live data natively into an EisDataset; returns the AcLiveDataCollector.
        
        No Python code runs per event; read the dataset once the job has ended.
        """
    def add_row_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.LiveDataRowEis], None]) -> None:
        """
        Add a callback for each frequency point of this job.
        
        The callback receives a :class:`velmar_link.LiveDataRowEis` that fits the last header. A row that
        does not fit it fails the job instead (JSON_MALFORMED, "the AC data table does not match the
        declared ...").
        """
    def add_waves_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.LiveDataWavesEis], None]) -> None:
        """
        Add a callback for the preview fragments of the waves being recorded.
        
        The callback receives a :class:`velmar_link.LiveDataWavesEis`; the fragments are meant for
        display and are not needed to build the result.
        """
    def get_number_of_live_data_callbacks(self) -> int:
        """
        The number of live-data callbacks added to this job.
        """
    @property
    def parameters(self) -> EisParametersFrequencyTablePy:
        """
        An object with the parameters that were passed to the constructor.
        """
class EisMultisineParametersGeneratePy:
    """
    Parameters of :class:`velmar_link._velmar_link.meas.EisMultisineGenerateJob`.
    """
    def __copy__(self) -> EisMultisineParametersGeneratePy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> EisMultisineParametersGeneratePy:
        """
        An independent copy.
        """
    def __init__(self, bias: typing.SupportsFloat | typing.SupportsIndex = 0.0, drift_correction: velmar_link._velmar_link.DriftCorrection | None = None, multisine_wave_in_result: bool = False, frequency_range: EisMultisineFrequencyRangeGenerate = ...) -> None:
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
    def drift_correction(self) -> velmar_link._velmar_link.DriftCorrection | None:
        """
        The "drift_correction" value (the key of the same name on the wire).
        """
    @drift_correction.setter
    def drift_correction(self, arg0: velmar_link._velmar_link.DriftCorrection | None) -> None:
        ...
    @property
    def frequency_range(self) -> EisMultisineFrequencyRangeGenerate:
        """
        The "frequency_range" value (the key of the same name on the wire).
        """
    @frequency_range.setter
    def frequency_range(self, arg0: EisMultisineFrequencyRangeGenerate) -> None:
        ...
    @property
    def multisine_wave_in_result(self) -> bool:
        """
        The "multisine_wave_in_result" value (the key of the same name on the wire).
        """
    @multisine_wave_in_result.setter
    def multisine_wave_in_result(self, arg0: bool) -> None:
        ...
class EisMultisineGenerateJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Impedance spectroscopy with multisine excitation over generated frequencies.
    
    "bias" is the DC operating point; "drift_correction" (a :class:`velmar_link.DriftCorrection` or None for the device default) selects how much drift correction is applied.
    
    Live data: add callbacks with :meth:`add_header_callback`, :meth:`add_row_callback`, :meth:`add_waves_callback` and :meth:`add_finished_callback` before the job is run.
    
    :param bias: the "bias" parameter of the request
    :param drift_correction: the "drift_correction" parameter of the request
    :param multisine_wave_in_result: the "multisine_wave_in_result" parameter of the request
    :param frequency_range: the "frequency_range" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "eis_multisine",
                    "parameters": {
                        "bias": 0.0,
                        "multisine_wave_in_result": false,
                        "frequency_range": {
                            "type": "generate",
                            "min_frequency": 100.0,
                            "max_frequency": 1000000.0,
                            "start_frequency": 10000.0,
                            "points_per_decade_upper": 20,
                            "points_per_decade_lower": 5,
                            "pre_duration": 0.1,
                            "pre_waves": 1,
                            "meas_duration": 1.0,
                            "meas_waves": 5,
                            "amplitude": 0.01,
                            "multisine_pre_waves": 1,
                            "multisine_meas_waves": 5,
                            "multisine_decades": 1,
                            "multisine_starting_harmonic": 1
                        }
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, bias: typing.SupportsFloat | typing.SupportsIndex = 0.0, drift_correction: velmar_link._velmar_link.DriftCorrection | None = None, multisine_wave_in_result: bool = False, frequency_range: EisMultisineFrequencyRangeGenerate = ..., meta_data: collections.abc.Mapping[str, str] = {}) -> None:
        """
        Create the job from its parameters.
        """
    def add_finished_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.JobInfo], None]) -> None:
        """
        Add a callback for the end of this job's live data; it receives the JobInfo.
        """
    def add_header_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.LiveDataHeaderEis, velmar_link._velmar_link.JobInfo], None]) -> None:
        """
        Add a callback for the live-data header of this job.
        
        The callback receives a :class:`velmar_link.LiveDataHeaderEis` and the :class:`velmar_link.JobInfo`;
        it runs on the link's I/O thread with the interpreter lock held. An exception it raises is
        reported as unraisable.
        """
    def add_live_data_collector(self) -> velmar_link._velmar_link.AcLiveDataCollector:
        """
        Collect this job's live data natively into an EisDataset; returns the AcLiveDataCollector.
        
        No Python code runs per event; read the dataset once the job has ended.
        """
    def add_row_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.LiveDataRowEis], None]) -> None:
        """
        Add a callback for each frequency point of this job.
        
        The callback receives a :class:`velmar_link.LiveDataRowEis` that fits the last header. A row that
        does not fit it fails the job instead (JSON_MALFORMED, "the AC data table does not match the
        declared ...").
        """
    def add_waves_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.LiveDataWavesEis], None]) -> None:
        """
        Add a callback for the preview fragments of the waves being recorded.
        
        The callback receives a :class:`velmar_link.LiveDataWavesEis`; the fragments are meant for
        display and are not needed to build the result.
        """
    def get_number_of_live_data_callbacks(self) -> int:
        """
        The number of live-data callbacks added to this job.
        """
    @property
    def parameters(self) -> EisMultisineParametersGeneratePy:
        """
        An object with the parameters that were passed to the constructor.
        """
class EisMultiSineTablePy:
    """
    Parameters of :class:`velmar_link._velmar_link.meas.EisMultisineTableJob`.
    """
    def __copy__(self) -> EisMultiSineTablePy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> EisMultiSineTablePy:
        """
        An independent copy.
        """
    def __init__(self, bias: typing.SupportsFloat | typing.SupportsIndex = 0.0, drift_correction: velmar_link._velmar_link.DriftCorrection | None = None, multisine_wave_in_result: bool = False, frequency_range: EisMultiSineTable = ...) -> None:
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
    def drift_correction(self) -> velmar_link._velmar_link.DriftCorrection | None:
        """
        The "drift_correction" value (the key of the same name on the wire).
        """
    @drift_correction.setter
    def drift_correction(self, arg0: velmar_link._velmar_link.DriftCorrection | None) -> None:
        ...
    @property
    def frequency_range(self) -> EisMultiSineTable:
        """
        The "frequency_range" value (the key of the same name on the wire).
        """
    @frequency_range.setter
    def frequency_range(self, arg0: EisMultiSineTable) -> None:
        ...
    @property
    def multisine_wave_in_result(self) -> bool:
        """
        The "multisine_wave_in_result" value (the key of the same name on the wire).
        """
    @multisine_wave_in_result.setter
    def multisine_wave_in_result(self, arg0: bool) -> None:
        ...
class EisMultisineTableJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Impedance spectroscopy with multisine excitation over a table of harmonics.
    
    "bias" is the DC operating point; "drift_correction" (a :class:`velmar_link.DriftCorrection` or None for the device default) selects how much drift correction is applied.
    
    Live data: add callbacks with :meth:`add_header_callback`, :meth:`add_row_callback`, :meth:`add_waves_callback` and :meth:`add_finished_callback` before the job is run.
    
    :param bias: the "bias" parameter of the request
    :param drift_correction: the "drift_correction" parameter of the request
    :param multisine_wave_in_result: the "multisine_wave_in_result" parameter of the request
    :param frequency_range: the "frequency_range" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "eis_multisine_table",
                    "parameters": {
                        "bias": 0.0,
                        "multisine_wave_in_result": false,
                        "frequency_range": {
                            "type": "table",
                            "fundamental_frequency": 1.0,
                            "harmonics": [],
                            "pre_duration": 0.1,
                            "pre_waves": 1,
                            "meas_duration": 1.0,
                            "meas_waves": 5
                        }
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, bias: typing.SupportsFloat | typing.SupportsIndex = 0.0, drift_correction: velmar_link._velmar_link.DriftCorrection | None = None, multisine_wave_in_result: bool = False, frequency_range: EisMultiSineTable = ..., meta_data: collections.abc.Mapping[str, str] = {}) -> None:
        """
        Create the job from its parameters.
        """
    def add_finished_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.JobInfo], None]) -> None:
        """
        Add a callback for the end of this job's live data; it receives the JobInfo.
        """
    def add_header_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.LiveDataHeaderEis, velmar_link._velmar_link.JobInfo], None]) -> None:
        """
        Add a callback for the live-data header of this job.
        
        The callback receives a :class:`velmar_link.LiveDataHeaderEis` and the :class:`velmar_link.JobInfo`;
        it runs on the link's I/O thread with the interpreter lock held. An exception it raises is
        reported as unraisable.
        """
    def add_live_data_collector(self) -> velmar_link._velmar_link.AcLiveDataCollector:
        """
        Collect this job's live data natively into an EisDataset; returns the AcLiveDataCollector.
        
        No Python code runs per event; read the dataset once the job has ended.
        """
    def add_row_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.LiveDataRowEis], None]) -> None:
        """
        Add a callback for each frequency point of this job.
        
        The callback receives a :class:`velmar_link.LiveDataRowEis` that fits the last header. A row that
        does not fit it fails the job instead (JSON_MALFORMED, "the AC data table does not match the
        declared ...").
        """
    def add_waves_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.LiveDataWavesEis], None]) -> None:
        """
        Add a callback for the preview fragments of the waves being recorded.
        
        The callback receives a :class:`velmar_link.LiveDataWavesEis`; the fragments are meant for
        display and are not needed to build the result.
        """
    def get_number_of_live_data_callbacks(self) -> int:
        """
        The number of live-data callbacks added to this job.
        """
    @property
    def parameters(self) -> EisMultiSineTablePy:
        """
        An object with the parameters that were passed to the constructor.
        """
class GeisVaParametersGeneratePy:
    """
    Parameters of :class:`velmar_link._velmar_link.meas.GeisVaGenerateJob`.
    """
    def __copy__(self) -> GeisVaParametersGeneratePy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> GeisVaParametersGeneratePy:
        """
        An independent copy.
        """
    def __init__(self, bias: typing.SupportsFloat | typing.SupportsIndex = 0.0, drift_correction: velmar_link._velmar_link.DriftCorrection | None = None, minimum_current_amplitude: typing.SupportsFloat | typing.SupportsIndex = 0.0001, maximum_current_amplitude: typing.SupportsFloat | typing.SupportsIndex = 0.01, frequency_range: EisFrequencyRangeGenerate = ...) -> None:
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
    def drift_correction(self) -> velmar_link._velmar_link.DriftCorrection | None:
        """
        The "drift_correction" value (the key of the same name on the wire).
        """
    @drift_correction.setter
    def drift_correction(self, arg0: velmar_link._velmar_link.DriftCorrection | None) -> None:
        ...
    @property
    def frequency_range(self) -> EisFrequencyRangeGenerate:
        """
        The "frequency_range" value (the key of the same name on the wire).
        """
    @frequency_range.setter
    def frequency_range(self, arg0: EisFrequencyRangeGenerate) -> None:
        ...
    @property
    def maximum_current_amplitude(self) -> float:
        """
        The "maximum_current_amplitude" value (the key of the same name on the wire).
        """
    @maximum_current_amplitude.setter
    def maximum_current_amplitude(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def minimum_current_amplitude(self) -> float:
        """
        The "minimum_current_amplitude" value (the key of the same name on the wire).
        """
    @minimum_current_amplitude.setter
    def minimum_current_amplitude(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
class GeisVaGenerateJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Galvanostatic impedance spectroscopy with adaptive amplitude over generated frequencies.
    
    "bias" is the DC operating point; "drift_correction" (a :class:`velmar_link.DriftCorrection` or None for the device default) selects how much drift correction is applied.
    
    Live data: add callbacks with :meth:`add_header_callback`, :meth:`add_row_callback`, :meth:`add_waves_callback` and :meth:`add_finished_callback` before the job is run.
    
    :param bias: the "bias" parameter of the request
    :param drift_correction: the "drift_correction" parameter of the request
    :param minimum_current_amplitude: the "minimum_current_amplitude" parameter of the request
    :param maximum_current_amplitude: the "maximum_current_amplitude" parameter of the request
    :param frequency_range: the "frequency_range" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "geis_va",
                    "parameters": {
                        "bias": 0.0,
                        "minimum_current_amplitude": 0.0001,
                        "maximum_current_amplitude": 0.01,
                        "frequency_range": {
                            "type": "generate",
                            "min_frequency": 100.0,
                            "max_frequency": 1000000.0,
                            "start_frequency": 10000.0,
                            "points_per_decade_upper": 20,
                            "points_per_decade_lower": 5,
                            "pre_duration": 0.1,
                            "pre_waves": 1,
                            "meas_duration": 1.0,
                            "meas_waves": 5,
                            "amplitude": 0.01
                        }
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, bias: typing.SupportsFloat | typing.SupportsIndex = 0.0, drift_correction: velmar_link._velmar_link.DriftCorrection | None = None, minimum_current_amplitude: typing.SupportsFloat | typing.SupportsIndex = 0.0001, maximum_current_amplitude: typing.SupportsFloat | typing.SupportsIndex = 0.01, frequency_range: EisFrequencyRangeGenerate = ..., meta_data: collections.abc.Mapping[str, str] = {}) -> None:
        """
        Create the job from its parameters.
        """
    def add_finished_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.JobInfo], None]) -> None:
        """
        Add a callback for the end of this job's live data; it receives the JobInfo.
        """
    def add_header_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.LiveDataHeaderEis, velmar_link._velmar_link.JobInfo], None]) -> None:
        """
        Add a callback for the live-data header of this job.
        
        The callback receives a :class:`velmar_link.LiveDataHeaderEis` and the :class:`velmar_link.JobInfo`;
        it runs on the link's I/O thread with the interpreter lock held. An exception it raises is
        reported as unraisable.
        """
    def add_live_data_collector(self) -> velmar_link._velmar_link.AcLiveDataCollector:
        """
        Collect this job's live data natively into an EisDataset; returns the AcLiveDataCollector.
        
        No Python code runs per event; read the dataset once the job has ended.
        """
    def add_row_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.LiveDataRowEis], None]) -> None:
        """
        Add a callback for each frequency point of this job.
        
        The callback receives a :class:`velmar_link.LiveDataRowEis` that fits the last header. A row that
        does not fit it fails the job instead (JSON_MALFORMED, "the AC data table does not match the
        declared ...").
        """
    def add_waves_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.LiveDataWavesEis], None]) -> None:
        """
        Add a callback for the preview fragments of the waves being recorded.
        
        The callback receives a :class:`velmar_link.LiveDataWavesEis`; the fragments are meant for
        display and are not needed to build the result.
        """
    def get_number_of_live_data_callbacks(self) -> int:
        """
        The number of live-data callbacks added to this job.
        """
    @property
    def parameters(self) -> GeisVaParametersGeneratePy:
        """
        An object with the parameters that were passed to the constructor.
        """
class GeisVaParametersFrequencyTablePy:
    """
    Parameters of :class:`velmar_link._velmar_link.meas.GeisVaFrequencyTableJob`.
    """
    def __copy__(self) -> GeisVaParametersFrequencyTablePy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> GeisVaParametersFrequencyTablePy:
        """
        An independent copy.
        """
    def __init__(self, bias: typing.SupportsFloat | typing.SupportsIndex = 0.0, drift_correction: velmar_link._velmar_link.DriftCorrection | None = None, minimum_current_amplitude: typing.SupportsFloat | typing.SupportsIndex = 0.0001, maximum_current_amplitude: typing.SupportsFloat | typing.SupportsIndex = 0.01, frequency_range: GeisVaParametersFrequencyTable = ...) -> None:
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
    def drift_correction(self) -> velmar_link._velmar_link.DriftCorrection | None:
        """
        The "drift_correction" value (the key of the same name on the wire).
        """
    @drift_correction.setter
    def drift_correction(self, arg0: velmar_link._velmar_link.DriftCorrection | None) -> None:
        ...
    @property
    def frequency_range(self) -> GeisVaParametersFrequencyTable:
        """
        The "frequency_range" value (the key of the same name on the wire).
        """
    @frequency_range.setter
    def frequency_range(self, arg0: GeisVaParametersFrequencyTable) -> None:
        ...
    @property
    def maximum_current_amplitude(self) -> float:
        """
        The "maximum_current_amplitude" value (the key of the same name on the wire).
        """
    @maximum_current_amplitude.setter
    def maximum_current_amplitude(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
    @property
    def minimum_current_amplitude(self) -> float:
        """
        The "minimum_current_amplitude" value (the key of the same name on the wire).
        """
    @minimum_current_amplitude.setter
    def minimum_current_amplitude(self, arg0: typing.SupportsFloat | typing.SupportsIndex) -> None:
        ...
class GeisVaFrequencyTableJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Galvanostatic impedance spectroscopy with adaptive amplitude over a frequency table.
    
    "bias" is the DC operating point; "drift_correction" (a :class:`velmar_link.DriftCorrection` or None for the device default) selects how much drift correction is applied.
    
    Live data: add callbacks with :meth:`add_header_callback`, :meth:`add_row_callback`, :meth:`add_waves_callback` and :meth:`add_finished_callback` before the job is run.
    
    :param bias: the "bias" parameter of the request
    :param drift_correction: the "drift_correction" parameter of the request
    :param minimum_current_amplitude: the "minimum_current_amplitude" parameter of the request
    :param maximum_current_amplitude: the "maximum_current_amplitude" parameter of the request
    :param frequency_range: the "frequency_range" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "geis_va_table",
                    "parameters": {
                        "bias": 0.0,
                        "minimum_current_amplitude": 0.0001,
                        "maximum_current_amplitude": 0.01,
                        "frequency_range": {
                            "type": "table",
                            "spectrum": []
                        }
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, bias: typing.SupportsFloat | typing.SupportsIndex = 0.0, drift_correction: velmar_link._velmar_link.DriftCorrection | None = None, minimum_current_amplitude: typing.SupportsFloat | typing.SupportsIndex = 0.0001, maximum_current_amplitude: typing.SupportsFloat | typing.SupportsIndex = 0.01, frequency_range: GeisVaParametersFrequencyTable = ..., meta_data: collections.abc.Mapping[str, str] = {}) -> None:
        """
        Create the job from its parameters.
        """
    def add_finished_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.JobInfo], None]) -> None:
        """
        Add a callback for the end of this job's live data; it receives the JobInfo.
        """
    def add_header_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.LiveDataHeaderEis, velmar_link._velmar_link.JobInfo], None]) -> None:
        """
        Add a callback for the live-data header of this job.
        
        The callback receives a :class:`velmar_link.LiveDataHeaderEis` and the :class:`velmar_link.JobInfo`;
        it runs on the link's I/O thread with the interpreter lock held. An exception it raises is
        reported as unraisable.
        """
    def add_live_data_collector(self) -> velmar_link._velmar_link.AcLiveDataCollector:
        """
        Collect this job's live data natively into an EisDataset; returns the AcLiveDataCollector.
        
        No Python code runs per event; read the dataset once the job has ended.
        """
    def add_row_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.LiveDataRowEis], None]) -> None:
        """
        Add a callback for each frequency point of this job.
        
        The callback receives a :class:`velmar_link.LiveDataRowEis` that fits the last header. A row that
        does not fit it fails the job instead (JSON_MALFORMED, "the AC data table does not match the
        declared ...").
        """
    def add_waves_callback(self, callback: collections.abc.Callable[[velmar_link._velmar_link.LiveDataWavesEis], None]) -> None:
        """
        Add a callback for the preview fragments of the waves being recorded.
        
        The callback receives a :class:`velmar_link.LiveDataWavesEis`; the fragments are meant for
        display and are not needed to build the result.
        """
    def get_number_of_live_data_callbacks(self) -> int:
        """
        The number of live-data callbacks added to this job.
        """
    @property
    def parameters(self) -> GeisVaParametersFrequencyTablePy:
        """
        An object with the parameters that were passed to the constructor.
        """
