"""Run the RQ5 workstation emulator from Python.

The emulator is the program ``velmar-emulator`` shipped in the package's ``bin`` folder: a
WebSocket server that speaks the workstation's protocol on the local machine, so that scripts
can be developed and tested without a device. Its identity reports the mode "EMULATION".

Typical use::

    from velmar_link.emulator import Emulator

    with Emulator() as emulator:                      # a free port on 127.0.0.1
        link = velmar_link.VelmarLink(emulator.host, emulator.port_str)
        ...

From the command line, ``python -m velmar_link.emulator --port 1994`` runs the program in the
foreground with the given arguments (``--help`` lists them).

Besides the workstation's endpoints the emulator offers test hooks under "/emulator/"
(faults and events on demand); :meth:`Emulator.control`, :meth:`Emulator.fault` and
:meth:`Emulator.event` send them. A real workstation does not know these paths.
"""

from __future__ import annotations

import base64
import json
import os
import queue
import subprocess
import sys
import threading
import time
import uuid
from pathlib import Path
from typing import Any, Iterable, Mapping

__all__ = ["Emulator", "EmulatorError", "LIMIT_NAMES", "PROTOCOL_VERSION", "bundled_binary", "main"]

#: The protocol version that this package speaks, sent in the handshake of control requests.
PROTOCOL_VERSION = 12

#: The bounds that ``Emulator(limits=...)`` passes on as command-line options.
LIMIT_NAMES = (
    "max_connections",
    "max_message_bytes",
    "max_incoming_bytes",
    "max_outgoing_bytes",
    "max_outgoing_frames",
    "resource_capacity",
    "resource_description_bytes",
    "jobs_kept",
    "jobs_kept_bytes",
)

_LISTENING_PREFIX = "listening on "


def bundled_binary() -> Path:
    """Return the path of the ``velmar-emulator`` program shipped with the package.

    The file may be missing when the package was built without the emulator.
    """
    return Path(__file__).resolve().parent / "bin" / "velmar-emulator"


class EmulatorError(RuntimeError):
    """The emulator could not be started, or a control request failed."""


class Emulator:
    """One emulator process, listening on a local port.

    Use it as a context manager, or call :meth:`start` and :meth:`stop` yourself. After
    :meth:`start`, :attr:`host`, :attr:`port` (``int``), :attr:`port_str` (``str``, the form
    that ``VelmarLink`` takes) and :attr:`address` (``"host:port"``) tell where it listens.

    Args:
        port: Port to listen on; 0 (the default) picks a free one.
        host: Address to listen on; loopback by default.
        user: User name of HTTP Basic authentication; ``None`` for no authentication.
        password: Password belonging to ``user``.
        protocol_version: Protocol version the emulator speaks; ``None`` for its default (12).
        extra_args: Further command-line arguments, e.g. ``("--seed", "1")``.
        startup_timeout: Seconds to wait for the emulator to report its port.
        binary: Path of the program; ``None`` for the one shipped with the package.
        limits: Bounds of what connections and retained state may cost, by option name
            without the leading dashes and with underscores, e.g.
            ``{"max_outgoing_bytes": 1 << 20, "jobs_kept": 10}`` becomes
            ``--max-outgoing-bytes 1048576 --jobs-kept 10``. Names: ``max_connections``,
            ``max_message_bytes``, ``max_incoming_bytes``, ``max_outgoing_bytes``,
            ``max_outgoing_frames``, ``resource_capacity``, ``resource_description_bytes``,
            ``jobs_kept``, ``jobs_kept_bytes`` (positive integers; docs/protocol.md gives the
            defaults).
    """

    def __init__(
        self,
        *,
        port: int = 0,
        host: str = "127.0.0.1",
        user: str | None = None,
        password: str | None = None,
        protocol_version: int | None = None,
        extra_args: Iterable[str] = (),
        startup_timeout: float = 10.0,
        binary: str | os.PathLike[str] | None = None,
        limits: Mapping[str, int] | None = None,
    ) -> None:
        """Store the options; nothing is started until :meth:`start`."""
        if (user is None) != (password is None):
            raise ValueError("user and password go together")
        self.limits: dict[str, int] = {}
        for name, value in (limits or {}).items():
            if name not in LIMIT_NAMES:
                raise ValueError(f"unknown limit {name!r}; known: {', '.join(LIMIT_NAMES)}")
            if isinstance(value, bool) or not isinstance(value, int) or value <= 0:
                raise ValueError(f"limit {name!r} must be a positive integer, not {value!r}")
            self.limits[name] = value
        self._requested_port = int(port)
        self._requested_host = host
        self.user = user
        self.password = password
        self.protocol_version = protocol_version
        self.extra_args = tuple(str(arg) for arg in extra_args)
        self.startup_timeout = float(startup_timeout)
        self.binary = Path(binary) if binary is not None else bundled_binary()
        self.host: str = host
        self.port: int = 0
        self._process: subprocess.Popen[str] | None = None
        self._reader: threading.Thread | None = None

    # -- life cycle -------------------------------------------------------------------------

    def command(self) -> list[str]:
        """Return the command line that :meth:`start` runs."""
        args = [str(self.binary), "--host", self._requested_host, "--port", str(self._requested_port)]
        if self.user is not None:
            args += ["--user", self.user, "--password", str(self.password)]
        if self.protocol_version is not None:
            args += ["--protocol-version", str(int(self.protocol_version))]
        for name, value in self.limits.items():
            args += ["--" + name.replace("_", "-"), str(value)]
        return args + list(self.extra_args)

    def start(self) -> Emulator:
        """Start the process and wait until it listens.

        Returns the emulator itself. Raises :class:`EmulatorError` when the program is
        missing, exits early or does not report its port within ``startup_timeout`` seconds.
        """
        if self.running:
            raise EmulatorError("emulator already running")
        if not self.binary.is_file():
            raise EmulatorError(f"emulator program not found: {self.binary}")
        self._process = subprocess.Popen(
            self.command(),
            stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE,
            text=True,
            encoding="utf-8",
            bufsize=1,
        )
        lines: queue.Queue[str | None] = queue.Queue()
        self._reader = threading.Thread(
            target=_drain, args=(self._process.stdout, lines), name="velmar-emulator-stdout", daemon=True
        )
        self._reader.start()
        try:
            line = lines.get(timeout=self.startup_timeout)
        except queue.Empty:
            self.stop()
            raise EmulatorError(f"emulator did not report its port within {self.startup_timeout} s") from None
        if line is None or not line.startswith(_LISTENING_PREFIX):
            try:
                code: int | None = self._process.wait(timeout=1.0)
            except subprocess.TimeoutExpired:
                code = None
            self.stop()
            raise EmulatorError(f"emulator failed to start (exit code {code}, first line {line!r})")
        host, _, port = line[len(_LISTENING_PREFIX) :].strip().rpartition(":")
        self.host, self.port = host, int(port)
        return self

    def stop(self, timeout: float = 5.0) -> int | None:
        """Stop the process: SIGTERM, then SIGKILL after ``timeout`` seconds.

        Returns the exit code (``None`` if it was not started). Calling it again is harmless.
        """
        process, self._process = self._process, None
        if process is None:
            return None
        if process.poll() is None:
            process.terminate()
            try:
                process.wait(timeout=timeout)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait(timeout=timeout)
        if self._reader is not None:
            self._reader.join(timeout=timeout)
            self._reader = None
        if process.stdout is not None:
            process.stdout.close()
        return process.returncode

    @property
    def running(self) -> bool:
        """``True`` while the process runs."""
        return self._process is not None and self._process.poll() is None

    @property
    def pid(self) -> int | None:
        """The process id, or ``None`` when not started."""
        return self._process.pid if self._process is not None else None

    @property
    def port_str(self) -> str:
        """The port as text, the form that ``VelmarLink`` takes."""
        return str(self.port)

    @property
    def address(self) -> str:
        """``"host:port"`` (an IPv6 host in brackets)."""
        return f"{_url_host(self.host)}:{self.port}"

    @property
    def url(self) -> str:
        """The WebSocket URL of the device target, ``ws://host:port/default``."""
        return f"ws://{self.address}/default"

    def __enter__(self) -> Emulator:
        """Start the emulator (see :meth:`start`)."""
        return self.start()

    def __exit__(self, *exc_info: object) -> None:
        """Stop the emulator (see :meth:`stop`)."""
        self.stop()

    def __repr__(self) -> str:
        """Show where the emulator listens, or that it is stopped."""
        state = f"listening on {self.address}" if self.running else "stopped"
        return f"Emulator({state})"

    # -- control requests -------------------------------------------------------------------

    def handshake_headers(self, *, accept_any_version: bool = True) -> dict[str, str]:
        """Return the headers of a handshake as the client library sends them.

        The protocol version header is always present; ``V-Accept-Any-Protocol-Version: 1``
        is added when ``accept_any_version`` is true, and the Authorization header when the
        emulator was started with a user.
        """
        headers = {"V-Supported-Protocol-Version": str(PROTOCOL_VERSION)}
        if accept_any_version:
            headers["V-Accept-Any-Protocol-Version"] = "1"
        if self.user is not None:
            token = base64.b64encode(f"{self.user}:{self.password}".encode()).decode("ascii")
            headers["Authorization"] = f"Basic {token}"
        return headers

    def control(self, request: Mapping[str, Any], timeout: float = 5.0) -> dict[str, Any]:
        """Send one request over a short-lived connection of its own and return the reply.

        A "request_id" is added when missing. Frames other than the matching "REPLY" (events,
        for instance) are skipped. Needs the ``websockets`` package. Raises
        :class:`EmulatorError` when no reply arrives within ``timeout`` seconds (so requests
        that are never answered, like "/stop", end with this error).
        """
        from websockets.sync.client import connect  # optional dependency, needed here only

        message = dict(request)
        message.setdefault("request_id", str(uuid.uuid4()))
        deadline = time.monotonic() + timeout
        with connect(
            self.url,
            additional_headers=self.handshake_headers(),
            open_timeout=timeout,
            close_timeout=timeout,
            max_size=None,
        ) as websocket:
            websocket.send(json.dumps(message))
            while True:
                remaining = deadline - time.monotonic()
                if remaining <= 0:
                    raise EmulatorError(f"no reply to {message.get('do')!r} within {timeout} s")
                try:
                    frame = websocket.recv(timeout=remaining)
                except TimeoutError:
                    continue
                if not isinstance(frame, str):
                    continue
                try:
                    reply = json.loads(frame)
                except ValueError:
                    continue
                if (
                    isinstance(reply, dict)
                    and reply.get("type") == "REPLY"
                    and reply.get("request_id") == message["request_id"]
                ):
                    return reply

    def fault(self, endpoint: str, action: str, **options: Any) -> dict[str, Any]:
        """Arm a fault for the next requests to ``endpoint`` and return the control reply.

        ``action`` is one of "delay", "drop", "close", "malformed", "no_type", "binary",
        "unknown_type"; ``options`` are "delay_ms", "count" (default 1, 0 disarms) and
        "events_before_reply" (a list of event ``dict``\\ s sent before the reply).
        """
        return self.control({"do": "/emulator/fault", "endpoint": endpoint, "action": action, **options})

    def event(self, event: Mapping[str, Any], delay_ms: int = 0) -> dict[str, Any]:
        """Make the emulator send ``event`` to the control connection after ``delay_ms``.

        Mostly useful through a connection of one's own; through :meth:`control` the event
        arrives after the reply and is skipped. Returns the control reply.
        """
        return self.control({"do": "/emulator/event", "event": dict(event), "delay_ms": delay_ms})


def _url_host(host: str) -> str:
    """Return ``host`` as it appears in a URL (IPv6 addresses in brackets)."""
    return f"[{host}]" if ":" in host and not host.startswith("[") else host


def _drain(stream: Any, lines: queue.Queue[str | None]) -> None:
    """Read the emulator's standard output until it ends; the first line goes to ``lines``."""
    first = True
    try:
        for line in stream:
            if first:
                lines.put(line)
                first = False
    except (OSError, ValueError):
        pass
    if first:
        lines.put(None)


def main() -> None:
    """Replace the current process with the emulator, passing on the command-line arguments."""
    binary = bundled_binary()
    if not binary.is_file():
        sys.stderr.write(f"velmar-emulator: program not found: {binary}\n")
        raise SystemExit(1)
    os.execv(binary, [str(binary), *sys.argv[1:]])


if __name__ == "__main__":
    main()
