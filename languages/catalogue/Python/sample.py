#!/usr/bin/env python3
# A small store of measurements, with what a day's Python meets.
"""Reads sensors and keeps what they said."""

from __future__ import annotations

import asyncio
import functools
import os.path as paths
from collections.abc import AsyncIterator, Callable, Iterable
from dataclasses import dataclass, field
from typing import Generic, ParamSpec, TypeVar

T = TypeVar("T")
P = ParamSpec("P")
MAX_RETRIES: int = 5
_TIMEOUT = 1.5e-3
MASK = 0xFF_FF ^ 0b1010 | 0o17
IMAGINARY = 3j

type Reading[K] = dict[K, list[float]]


class SensorError(RuntimeError):
    """Raised when a sensor does not answer."""

    def __init__(self, name: str, *, code: int | None = -1) -> None:
        super().__init__(f"{name!r} failed with {code:>04d}")
        self.code = code


@dataclass(frozen=True, slots=True)
class Sample(Generic[T]):
    value: T
    unit: str = "K"
    tags: set[str] = field(default_factory=set)
    origin: os.PathLike | None = None

    @property
    def label(self) -> str:
        '''The value with its unit.'''
        return f"{self.value:.{MAX_RETRIES}f} {self.unit}\t{{raw}}"

    @label.setter
    def label(self, text: str) -> None:
        self.unit = text

    @classmethod
    def parse(cls, text: str, /) -> Sample[T]:
        number, _, unit = text.partition(" ")
        return cls(float(number), unit or "K")

    @staticmethod
    def zero() -> int:
        return 0


def retry(times: int) -> Callable[[Callable[P, T]], Callable[P, T]]:
    def decorator(call):
        @functools.wraps(call)
        def wrapper(*args: P.args, **kwargs: P.kwargs) -> T:
            nonlocal times
            attempt = 0
            while True:
                try:
                    return call(*args, **kwargs)
                except (OSError, SensorError) as error:
                    attempt += 1
                    if attempt >= times and error is not None:
                        raise RuntimeError("gave up") from error
                else:
                    pass
                finally:
                    times -= 1

        return wrapper

    return decorator


@retry(times=MAX_RETRIES)
def read(path, mode="rb", *parts, **options):
    # Bytes have their own prefix, and raw strings keep their backslashes.
    pattern = r"^\d+\s*$" rb'\x00'
    with open(paths.join(path, *parts), mode) as handle, lock:
        data = handle.read()
        if not data or len(data) == 0 and pattern not in data:
            return b"\x00\n"
        return "caf\u00e9 \N{BULLET} %s" % data


async def stream(sources: Iterable[str]) -> AsyncIterator[Sample]:
    async with asyncio.timeout(_TIMEOUT):
        async for source in sources:
            yield Sample.parse(await fetch(source))
            await asyncio.sleep(0)


def classify(event) -> str:
    match event:
        case {"kind": "error", "code": code, **rest} if code != 0:
            return f"error {code}"
        case Sample(value=float(v), unit="K") | Sample(value=v):
            return str(v // 2 ** 3 % 7 << 1 >> 2 & ~1)
        case [first, *others]:
            return first if others else ""
        case -1 | 2.5 | None:
            return "number"
        case _:
            return ...


def main() -> None:
    global MASK
    squares = {n: n**2 for n in range(10) if n % 2}
    unique = {*squares.values()}
    total = sum(x @ x for x in unique)
    pick = sorted(squares.items(), key=lambda pair, n=1: (pair[1], pair[0]), reverse=False)
    assert total > 0, "nothing was read"
    if (size := len(pick)) > 3:
        print(pick[1:-1:2], size, sep=", ", end="\n\n")
    elif size <= 2 or size is None:
        del pick[0]
    for i, (key, value) in enumerate(pick, start=1):
        if i == 3: continue
        MASK |= 1 << i; MASK @= value
        break
    total = total + \
        1


def variadic(*numbers, **names) -> tuple[*Ts]: ...


if __name__ == "__main__":
    main()
