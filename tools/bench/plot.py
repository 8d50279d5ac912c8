"""Curves of cost against size as SVG, both axes logarithmic."""

import html
import math

WIDTH, HEIGHT = 720, 420
LEFT, RIGHT, TOP, BOTTOM = 76, 210, 44, 52
LABEL_HEIGHT = 15
COLOURS = ["#0072b2", "#d55e00", "#009e73", "#cc79a7", "#7a5195", "#56791e"]


def decades(values):
    """The powers of ten around all values, as exponents."""
    low, high = math.floor(math.log10(min(values))), math.ceil(math.log10(max(values)))
    return range(low, max(high, low + 1) + 1)


def short(number):
    for unit, size in (("G", 1e9), ("M", 1e6), ("k", 1e3)):
        if number >= size:
            return f"{number / size:g}{unit}"
    return f"{number:g}"


class Axes:
    def __init__(self, points):
        self.x = decades([x for x, _ in points])
        self.y = decades([y for _, y in points])

    def place(self, x, y):
        across = (math.log10(x) - self.x[0]) / (self.x[-1] - self.x[0])
        up = (math.log10(y) - self.y[0]) / (self.y[-1] - self.y[0])
        return LEFT + across * (WIDTH - LEFT - RIGHT), HEIGHT - BOTTOM - up * (HEIGHT - TOP - BOTTOM)

    def grid(self):
        for exponent in self.x:
            x, _ = self.place(10.0**exponent, 10.0**self.y[0])
            yield f'<path class="grid" d="M{x:.1f} {TOP}V{HEIGHT - BOTTOM}"/>'
            yield f'<text x="{x:.1f}" y="{HEIGHT - BOTTOM + 18}" text-anchor="middle">{short(10.0**exponent)}</text>'
        for exponent in self.y:
            _, y = self.place(10.0**self.x[0], 10.0**exponent)
            yield f'<path class="grid" d="M{LEFT} {y:.1f}H{WIDTH - RIGHT}"/>'
            yield f'<text x="{LEFT - 8}" y="{y + 4:.1f}" text-anchor="end">{short(10.0**exponent)}</text>'


def label_places(ends):
    """Heights of the names beside the ends of the curves, pushed apart from above."""
    places, last = {}, -math.inf
    for index, height in sorted(enumerate(ends), key=lambda end: end[1]):
        last = max(height, last + LABEL_HEIGHT)
        places[index] = last
    return places


def curves(axes, series):
    placed = [[axes.place(x, y) for x, y in points] for _, points in series]
    labels = label_places([points[-1][1] for points in placed])
    for index, ((name, _), points) in enumerate(zip(series, placed)):
        colour = COLOURS[index % len(COLOURS)]
        line = " ".join(f"{x:.1f},{y:.1f}" for x, y in points)
        yield f'<polyline points="{line}" fill="none" stroke="{colour}" stroke-width="2"/>'
        yield from (f'<circle cx="{x:.1f}" cy="{y:.1f}" r="3" fill="{colour}"/>' for x, y in points)
        # The curve may end left of the edge: its name stands at the edge, in its colour.
        yield f'<text x="{WIDTH - RIGHT + 10}" y="{labels[index] + 4:.1f}" fill="{colour}">{html.escape(name)}</text>'


def svg(title, across, up, series):
    """`series` are names with points, each from the smallest size to the largest."""
    axes = Axes([point for _, points in series for point in points])
    middle = (LEFT + WIDTH - RIGHT) / 2
    parts = [
        f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {HEIGHT}" font-family="sans-serif" font-size="12">',
        "<style>.grid{stroke:#ddd;fill:none}</style>",
        f'<rect width="{WIDTH}" height="{HEIGHT}" fill="#fff"/>',
        f'<text x="{LEFT}" y="24" font-size="15">{html.escape(title)}</text>',
        *axes.grid(),
        f'<text x="{middle}" y="{HEIGHT - 12}" text-anchor="middle">{html.escape(across)}</text>',
        f'<text transform="translate(18 {(TOP + HEIGHT - BOTTOM) / 2}) rotate(-90)" text-anchor="middle">'
        f"{html.escape(up)}</text>",
        *curves(axes, series),
        "</svg>",
    ]
    return "\n".join(parts) + "\n"
