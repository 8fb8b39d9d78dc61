"""
Submodule with calibration jobs.
"""
from __future__ import annotations
import collections.abc
import typing
import velmar_link._velmar_link
__all__: list[str] = ['CalibrateJob', 'CalibrateParametersPy', 'CalibrateParametersStringPy', 'CalibrationData', 'FilterUsageMatrix', 'GetCalibrationDataJob', 'GetCalibrationDataParametersPy', 'GetFilterUsageMatrixJob', 'GetFilterUsageMatrixParametersPy', 'GetMeshJsonFileJob', 'SetCalibrationDataJob', 'SetCalibrationDataParametersPy', 'SetMeshJsonFileJob', 'SetMeshJsonFileParametersPy']
class CalibrationData:
    """
    A typed calibration value: float, list of floats, spectra or str.
    """
    def __init__(self, value: typing.SupportsFloat | typing.SupportsIndex | collections.abc.Sequence[typing.SupportsFloat | typing.SupportsIndex] | collections.abc.Sequence[collections.abc.Sequence[typing.SupportsFloat | typing.SupportsIndex]] | str = 0.0) -> None:
        """
        Create from a float, a list of floats, spectra (list of [frequency, real, imaginary]) or a str.
        """
    def get_calibration_data_type(self) -> velmar_link._velmar_link.CalibrationDataTypeEnum:
        """
        The :class:`velmar_link.CalibrationDataTypeEnum` of the value.
        """
    @property
    def value(self) -> float | list[float] | list[list[float]] | str:
        """
        The value.
        """
    @value.setter
    def value(self, arg0: typing.SupportsFloat | typing.SupportsIndex | collections.abc.Sequence[typing.SupportsFloat | typing.SupportsIndex] | collections.abc.Sequence[collections.abc.Sequence[typing.SupportsFloat | typing.SupportsIndex]] | str) -> None:
        ...
class CalibrateParametersPy:
    """
    Parameters of :class:`velmar_link.calibration.CalibrateJob`.
    """
    def __copy__(self) -> CalibrateParametersPy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> CalibrateParametersPy:
        """
        An independent copy.
        """
    def __init__(self, calibration_type: velmar_link._velmar_link.CalibrationTypesEnum = velmar_link._velmar_link.CalibrationTypesEnum.DC, calibration_path: str = '', indexes: collections.abc.Sequence[typing.SupportsInt | typing.SupportsIndex] = [], paths: collections.abc.Sequence[str] = []) -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def calibration_path(self) -> str:
        """
        The "calibration_path" value (the key of the same name on the wire).
        """
    @calibration_path.setter
    def calibration_path(self, arg0: str) -> None:
        ...
    @property
    def calibration_type(self) -> velmar_link._velmar_link.CalibrationTypesEnum:
        """
        The "calibration_type" value (the key of the same name on the wire).
        """
    @calibration_type.setter
    def calibration_type(self, arg0: velmar_link._velmar_link.CalibrationTypesEnum) -> None:
        ...
    @property
    def indexes(self) -> list[int]:
        """
        The "indexes" value (the key of the same name on the wire).
        """
    @indexes.setter
    def indexes(self, arg0: collections.abc.Sequence[typing.SupportsInt | typing.SupportsIndex]) -> None:
        ...
    @property
    def paths(self) -> list[str]:
        """
        The "paths" value (the key of the same name on the wire).
        """
    @paths.setter
    def paths(self, arg0: collections.abc.Sequence[str]) -> None:
        ...
class CalibrateParametersStringPy:
    """
    Parameters of :class:`velmar_link._velmar_link.calibration.CalibrateJob`.
    """
    def __copy__(self) -> CalibrateParametersStringPy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> CalibrateParametersStringPy:
        """
        An independent copy.
        """
    def __init__(self, calibration_type: str = 'dc', calibration_path: str = '', indexes: collections.abc.Sequence[typing.SupportsInt | typing.SupportsIndex] = [], paths: collections.abc.Sequence[str] = []) -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def calibration_path(self) -> str:
        """
        The "calibration_path" value (the key of the same name on the wire).
        """
    @calibration_path.setter
    def calibration_path(self, arg0: str) -> None:
        ...
    @property
    def calibration_type(self) -> str:
        """
        The "calibration_type" value (the key of the same name on the wire).
        """
    @calibration_type.setter
    def calibration_type(self, arg0: str) -> None:
        ...
    @property
    def indexes(self) -> list[int]:
        """
        The "indexes" value (the key of the same name on the wire).
        """
    @indexes.setter
    def indexes(self, arg0: collections.abc.Sequence[typing.SupportsInt | typing.SupportsIndex]) -> None:
        ...
    @property
    def paths(self) -> list[str]:
        """
        The "paths" value (the key of the same name on the wire).
        """
    @paths.setter
    def paths(self, arg0: collections.abc.Sequence[str]) -> None:
        ...
class CalibrateJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Start a calibration of the RQ5. Only :attr:`velmar_link.CalibrationTypesEnum.DC` (perform full DC calibration) is meant for users.
    
    :param calibration_type: the "calibration_type" parameter of the request
    :param calibration_path: the "calibration_path" parameter of the request
    :param indexes: the "indexes" parameter of the request
    :param paths: the "paths" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "calibrate",
                    "parameters": {
                        "calibration_type": "dc",
                        "calibration_path": "",
                        "indexes": [],
                        "paths": []
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    @typing.overload
    def __init__(self, parameters: CalibrateParametersPy, meta_data: collections.abc.Mapping[str, str] = {}) -> None:
        """
        Create the job from :class:`velmar_link.calibration.CalibrateParametersPy`.
        """
    @typing.overload
    def __init__(self, calibration_type: velmar_link._velmar_link.CalibrationTypesEnum = velmar_link._velmar_link.CalibrationTypesEnum.DC, calibration_path: str = '', indexes: collections.abc.Sequence[typing.SupportsInt | typing.SupportsIndex] = [], paths: collections.abc.Sequence[str] = [], meta_data: collections.abc.Mapping[str, str] = {}) -> None:
        """
        Create the job.
        
        :param calibration_type: the :class:`velmar_link.CalibrationTypesEnum`
        """
    @property
    def parameters(self) -> CalibrateParametersStringPy:
        """
        An object with the parameters that were passed to the constructor.
        """
class SetCalibrationDataParametersPy:
    """
    Parameters of :class:`velmar_link._velmar_link.calibration.SetCalibrationDataJob`.
    """
    def __copy__(self) -> SetCalibrationDataParametersPy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> SetCalibrationDataParametersPy:
        """
        An independent copy.
        """
    def __init__(self, calibration_type: str = 'dc', calibration_path: str = '', indexes: collections.abc.Sequence[typing.SupportsInt | typing.SupportsIndex] = [], data: CalibrationData = ...) -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def calibration_path(self) -> str:
        """
        The "calibration_path" value (the key of the same name on the wire).
        """
    @calibration_path.setter
    def calibration_path(self, arg0: str) -> None:
        ...
    @property
    def calibration_type(self) -> str:
        """
        The "calibration_type" value (the key of the same name on the wire).
        """
    @calibration_type.setter
    def calibration_type(self, arg0: str) -> None:
        ...
    @property
    def data(self) -> CalibrationData:
        """
        The "data" value (the key of the same name on the wire).
        """
    @data.setter
    def data(self, arg0: CalibrationData) -> None:
        ...
    @property
    def indexes(self) -> list[int]:
        """
        The "indexes" value (the key of the same name on the wire).
        """
    @indexes.setter
    def indexes(self, arg0: collections.abc.Sequence[typing.SupportsInt | typing.SupportsIndex]) -> None:
        ...
class SetCalibrationDataJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Store calibration data on the RQ5.
    
    No customer should call this job.
    
    :param calibration_type: the "calibration_type" parameter of the request
    :param calibration_path: the "calibration_path" parameter of the request
    :param indexes: the "indexes" parameter of the request
    :param data: the "data" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "\\ud83d\\udee0\\ufe0f/set_calibration_data",
                    "parameters": {
                        "calibration_type": "dc",
                        "calibration_path": "",
                        "indexes": [],
                        "data": {
                            "type": "float",
                            "value": 0.0
                        }
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, calibration_type: str = 'dc', calibration_path: str = '', indexes: collections.abc.Sequence[typing.SupportsInt | typing.SupportsIndex] = [], data: CalibrationData = ..., meta_data: collections.abc.Mapping[str, str] = {}) -> None:
        """
        Create the job from its parameters.
        """
    @property
    def parameters(self) -> SetCalibrationDataParametersPy:
        """
        An object with the parameters that were passed to the constructor.
        """
class GetCalibrationDataParametersPy:
    """
    Parameters of :class:`velmar_link._velmar_link.calibration.GetCalibrationDataJob`.
    """
    def __copy__(self) -> GetCalibrationDataParametersPy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> GetCalibrationDataParametersPy:
        """
        An independent copy.
        """
    def __init__(self, calibration_type: str = 'dc', calibration_path: str = '', indexes: collections.abc.Sequence[typing.SupportsInt | typing.SupportsIndex] = []) -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def calibration_path(self) -> str:
        """
        The "calibration_path" value (the key of the same name on the wire).
        """
    @calibration_path.setter
    def calibration_path(self, arg0: str) -> None:
        ...
    @property
    def calibration_type(self) -> str:
        """
        The "calibration_type" value (the key of the same name on the wire).
        """
    @calibration_type.setter
    def calibration_type(self, arg0: str) -> None:
        ...
    @property
    def indexes(self) -> list[int]:
        """
        The "indexes" value (the key of the same name on the wire).
        """
    @indexes.setter
    def indexes(self, arg0: collections.abc.Sequence[typing.SupportsInt | typing.SupportsIndex]) -> None:
        ...
class GetCalibrationDataJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Read calibration data from the RQ5.
    
    No customer should call this job.
    
    :param calibration_type: the "calibration_type" parameter of the request
    :param calibration_path: the "calibration_path" parameter of the request
    :param indexes: the "indexes" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "\\ud83d\\udee0\\ufe0f/get_calibration_data",
                    "parameters": {
                        "calibration_type": "dc",
                        "calibration_path": "",
                        "indexes": []
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, calibration_type: str = 'dc', calibration_path: str = '', indexes: collections.abc.Sequence[typing.SupportsInt | typing.SupportsIndex] = []) -> None:
        """
        Create the job from its parameters.
        """
    def get_calibration_data_type(self) -> velmar_link._velmar_link.CalibrationDataTypeEnum:
        """
        The :class:`velmar_link.CalibrationDataTypeEnum` of the last result.
        """
    def get_float_data(self) -> float:
        """
        The result as float; raises if it is of another type.
        """
    def get_float_vector_data(self) -> list[float]:
        """
        The result as list of floats; raises if it is of another type.
        """
    def get_job_result(self) -> CalibrationData:
        """
        The result of the last run; meaningful only when the job was successful.
        """
    def get_spectra_data(self) -> list[list[float]]:
        """
        The result as spectra (list of [frequency, real, imaginary]); raises if it is of another type.
        """
    def get_string_data(self) -> str:
        """
        The result as str; raises if it is of another type.
        """
    @property
    def parameters(self) -> GetCalibrationDataParametersPy:
        """
        An object with the parameters that were passed to the constructor.
        """
class FilterUsageMatrix:
    """
    How often each filter was used.
    """
    @property
    def matrix(self) -> list[list[int]]:
        """
        one row [path index, filter index, gain index, count] per entry
        """
class GetFilterUsageMatrixParametersPy:
    """
    Parameters of :class:`velmar_link._velmar_link.calibration.GetFilterUsageMatrixJob`.
    """
    def __copy__(self) -> GetFilterUsageMatrixParametersPy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> GetFilterUsageMatrixParametersPy:
        """
        An independent copy.
        """
    def __init__(self, uri: str = '') -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def uri(self) -> str:
        """
        The "uri" value (the key of the same name on the wire).
        """
    @uri.setter
    def uri(self, arg0: str) -> None:
        ...
class GetFilterUsageMatrixJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Read the filter usage matrix.
    
    No customer should call this job.
    
    :param uri: the "uri" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "\\ud83d\\udee0\\ufe0f/get_filter_usage_matrix",
                    "parameters": {
                        "uri": ""
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, uri: str = '') -> None:
        """
        Create the job from its parameters.
        """
    def get_job_result(self) -> FilterUsageMatrix:
        """
        The result of the last run; meaningful only when the job was successful.
        """
    @property
    def parameters(self) -> GetFilterUsageMatrixParametersPy:
        """
        An object with the parameters that were passed to the constructor.
        """
class GetMeshJsonFileJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Read the mesh file of the RQ5; :meth:`get_job_result` returns its contents as bytes.
    
    No customer should call this job.
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "\\ud83d\\udee0\\ufe0f/get_mesh_json_file",
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
    def get_job_result(self) -> bytes:
        """
        The result of the last run as bytes; meaningful only when the job was successful.
        """
class SetMeshJsonFileParametersPy:
    """
    Parameters of :class:`velmar_link._velmar_link.calibration.SetMeshJsonFileJob`.
    """
    def __copy__(self) -> SetMeshJsonFileParametersPy:
        """
        An independent copy.
        """
    def __deepcopy__(self, memo: dict) -> SetMeshJsonFileParametersPy:
        """
        An independent copy.
        """
    def __init__(self, name: str = 'mesh.json', content: str = '') -> None:
        """
        Create the record; every field is a keyword argument.
        """
    @property
    def content(self) -> str:
        """
        The "content" value (the key of the same name on the wire).
        """
    @content.setter
    def content(self, arg0: str) -> None:
        ...
    @property
    def name(self) -> str:
        """
        The "name" value (the key of the same name on the wire).
        """
    @name.setter
    def name(self, arg0: str) -> None:
        ...
class SetMeshJsonFileJob(velmar_link._velmar_link.AbstractMeasurementJob):
    """
    Store a mesh file on the RQ5; "content" is the file in Base64.
    
    No customer should call this job.
    
    :param name: the "name" parameter of the request
    :param content: the "content" parameter of the request
    
    .. collapse:: WebSocket JSON Example
    
        .. code-block:: json
    
            {
                "do": "/job/start",
                "job": {
                    "type": "\\ud83d\\udee0\\ufe0f/set_mesh_json_file",
                    "parameters": {
                        "name": "mesh.json",
                        "content": ""
                    },
                    "stop_conditions": [],
                    "job_meta": {}
                },
                "request_id": "123e4567-e89b-42d3-a456-426614174000"
            }
    """
    def __init__(self, name: str = 'mesh.json', content: str = '') -> None:
        """
        Create the job from its parameters.
        """
    @property
    def parameters(self) -> SetMeshJsonFileParametersPy:
        """
        An object with the parameters that were passed to the constructor.
        """
