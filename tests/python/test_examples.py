"""The Python examples run as a user runs them, and write what they say."""

import os
import subprocess
import sys
from pathlib import Path

import pytest

SOURCE = Path(os.environ.get("ONDREL_SOURCE_DIR", Path(__file__).resolve().parents[2]))
EXAMPLES = SOURCE / "examples" / "python"
CHARTS = sorted(p for p in EXAMPLES.glob("*.py") if p.name != "dask_grid.py")
PNG = b"\x89PNG\r\n\x1a\n"


def run(script, *args, cwd):
    done = subprocess.run([sys.executable, "-B", str(script), *args], cwd=cwd, capture_output=True, text=True,
                          timeout=600)
    assert done.returncode == 0, done.stdout + done.stderr
    return done.stdout


@pytest.mark.parametrize("script", CHARTS, ids=lambda p: p.stem)
def test_chart_example_writes_its_pictures(script, tmp_path):
    out = run(script, "--out", str(tmp_path / "charts"), cwd=tmp_path)
    pictures = sorted((tmp_path / "charts").glob("*.png"))
    assert pictures, out
    for picture in pictures:
        assert picture.read_bytes()[:8] == PNG and picture.stat().st_size > 10_000
        assert picture.name in out


def test_chart_examples_are_there():
    assert {p.stem for p in CHARTS} >= {"mollier_chart", "flue_gas_cooling", "transport"}


def test_dask_grid_matches_the_direct_call(tmp_path):
    out = run(EXAMPLES / "dask_grid.py", "--points", "200000", "--workers", "2", cwd=tmp_path)
    assert "states/s" in out


def test_readme_program(tmp_path):
    out = run(SOURCE / "examples" / "readme" / "air.py", cwd=tmp_path)
    assert out == "air at 1.01325 bar, 25 C: h = 0.0000 kJ/kg, s = 6.8597 kJ/(kg K)\n"
