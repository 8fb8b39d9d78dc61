"""A real measurement on the emulated workstation.

Starts the bundled emulator with a redox couple in solution (1 mM, E0 = 0.2 V), connects,
switches the main potentiostat on and off, then records a cyclic voltammogram while printing
live progress, downloads the complete result and compares the peak current with the
Randles-Sevcik equation.
"""

from __future__ import annotations

import math

import velmar_link
from velmar_link import control, meas
from velmar_link.emulator import Emulator

CELL = "redox:E0=0.2,n=1,c=1e-3,D=1e-9,A=7e-6,k0=0.1,alpha=0.5,Cdl=0,Ru=0"
SCAN_RATE = 0.1  # V/s


def randles_sevcik(n=1, area=7e-6, concentration=1.0, diffusion=1e-9, scan_rate=SCAN_RATE, temperature=298.15):
    """Peak current (A) of a reversible couple; concentration in mol/m^3."""
    faraday, gas = 96485.33212, 8.314462618
    return 0.4463 * n * faraday * area * concentration * math.sqrt(
        n * faraday * scan_rate * diffusion / (gas * temperature))


def main() -> None:
    print(f"velmar_link {velmar_link.__version__}, protocol {velmar_link.VelmarLink.get_supported_protocol_version()}")
    with Emulator(extra_args=["--cell", CELL, "--time-scale", "10", "--seed", "1"]) as emulator:
        link = velmar_link.VelmarLinkExc("127.0.0.1", emulator.port_str)
        link.connect()
        try:
            info = link.get_workstation_info()
            print(f"connected to {info.model_name} {info.serial_number} (firmware {info.firmware_version})")

            switch_on = control.SwitchOnJob(potentiostat="MAIN:1:POT",
                                            coupling=velmar_link.PotentiostatCoupling.POTENTIOSTATIC,
                                            bias=0.5, voltage_range_index=0, compliance_range_index=0)
            link.do_job(switch_on)
            applied = switch_on.get_job_result()
            print(f"main potentiostat on: applied bias {applied.applied_bias:.3f} V, current {applied.current:.3e} A")
            state = control.GetPotentiostatStateJob(potentiostat="MAIN:1:POT")
            link.do_job(state)
            print(f"state: switched on {state.get_job_result().switched_on}")
            hardware = control.GetHardwareInfoJob()
            link.do_job(hardware)
            tree = hardware.get_job_result()
            print(f"hardware: {len(tree.potentiostats)} potentiostats, {len(tree.cards)} cards, "
                  f"{len(tree.paths)} signal paths")
            link.do_job(control.SwitchOffJob(potentiostat="MAIN:1:POT"))
            print("main potentiostat off")

            cv = meas.CvJob(start_value=0.5, first_vertex=-0.1, second_vertex=0.5, end_value=0.5,
                            scan_rate=SCAN_RATE, output_data_rate=200.0, num_cycles=1.0, autorange=False,
                            current_range=1e-3)
            received = [0]
            next_report = [0.0]

            def on_rows(rows):
                received[0] += len(rows)
                t, e, i = rows[-1]
                if t >= next_report[0]:
                    next_report[0] = t + 1.0
                    print(f"  t = {t:5.2f} s  E = {e:+.3f} V  I = {i:+.3e} A  ({received[0]} rows)")

            cv.add_rows_callback(on_rows)
            print("cyclic voltammogram, 0.5 V -> -0.1 V -> 0.5 V at 100 mV/s:")
            link.do_job(cv)
            dataset = link.get_job_result_data(cv)
            voltage = dataset.get_dc_track("voltage")
            current = dataset.get_dc_track("current")
            print(f"downloaded {dataset.get_row_count()} rows ({received[0]} arrived live)")

            # The first samples carry the transient of the potential step at the start.
            times = dataset.get_dc_track("time")
            sweep = [k for k in range(len(current)) if times[k] >= 0.05]
            cathodic = min(sweep, key=current.__getitem__)
            anodic = max(sweep, key=current.__getitem__)
            expected = randles_sevcik()
            print(f"cathodic peak {current[cathodic]:+.3e} A at {voltage[cathodic]:+.3f} V")
            print(f"anodic peak   {current[anodic]:+.3e} A at {voltage[anodic]:+.3f} V")
            print(f"peak separation {1000 * abs(voltage[anodic] - voltage[cathodic]):.1f} mV "
                  f"(reversible: 59 mV)")
            print(f"Randles-Sevcik peak current {expected:.3e} A; measured/expected "
                  f"{abs(current[cathodic]) / expected:.3f}")
        finally:
            link.disconnect()


if __name__ == "__main__":
    main()
