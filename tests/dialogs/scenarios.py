"""The table of dialog scenarios."""


class Scenario:
    def __init__(self, name):
        self.name = name
        self.steps = []
        self.transcript = []

    def compare(self, heard, errors):
        """1 and a few lines on what differs, or 0."""
        expected = "".join(line + "\n" for line in self.transcript)
        if heard == expected and not errors:
            return 0
        print(f"{self.name}:\n  expected {expected!r}\n  heard    {heard!r}\n  {errors}")
        return 1


def read(file):
    scenarios = []
    steps = True
    for line in open(file, encoding="utf-8").read().split("\n"):
        if line.startswith("["):
            scenarios.append(Scenario(line[1:-1]))
            steps = True
        elif line == "=":
            steps = False
        elif scenarios and line and not line.startswith("#"):
            (scenarios[-1].steps if steps else scenarios[-1].transcript).append(line)
    if not scenarios:
        raise SystemExit(f"{file}: no scenario")
    return scenarios
