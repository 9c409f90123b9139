"""The pictures of Scene.h, bit for bit."""

from dataclasses import dataclass

Point = tuple[float, float, float]

PICTURES_PER_HOUSE = 8


@dataclass
class Picture:
    path: str
    left_top: Point
    left_bottom: Point
    right_bottom: Point
    pixels_per_metre: float


def scene(count: int):
    """Yields the first `count` pictures."""
    state = 1

    def below(limit: int) -> int:
        nonlocal state
        state = (state * 6364136223846793005 + 1442695040888963407) % 2**64
        return (state >> 33) % limit

    def metres(least: int, span: int) -> float:
        return float(least + below(span)) / 1000.0

    house = (0.0, 0.0, 0.0)
    for number in range(count):
        if number % PICTURES_PER_HOUSE == 0:
            house = (metres(4_468_000_000, 2_000_000), metres(5_333_000_000, 2_000_000), metres(520_000, 60_000))

        first = number == 0
        a = 400 + below(200)
        b = 0 if first else below(9) - 4
        c = 0 if first else below(9) - 4
        d = 0 if first else below(501) - 250
        n = float(a * a + b * b + c * c + d * d)
        width = metres(3_000, 30_000)
        height = metres(2_500, 17_500)
        x, y, z = (house[0] + metres(0, 30_000), house[1] + metres(0, 30_000), house[2] + metres(0, 5_000))
        yield Picture(
            right_bottom=(
                x + float(a * a + b * b - c * c - d * d) / n * width,
                y + float(2 * (b * c + a * d)) / n * width,
                z + float(2 * (b * d - a * c)) / n * width,
            ),
            left_top=(
                x + float(2 * (b * d + a * c)) / n * height,
                y + float(2 * (c * d - a * b)) / n * height,
                z + float(a * a - b * b - c * c + d * d) / n * height,
            ),
            left_bottom=(x, y, z),
            pixels_per_metre=float(100 * (1 + below(5))),
            path=f"D:\\Aufmass\\Haus-{number // PICTURES_PER_HOUSE + 1:05}\\Fassade-{number + 1:06}.png",
        )
