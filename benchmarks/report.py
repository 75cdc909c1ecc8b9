"""Prints figures with their yardsticks and targets."""


class Report:
    """Remembers whether every target was met."""

    def __init__(self):
        self.missed = []

    def section(self, title):
        print(f"\n{title}")

    def note(self, text):
        print(f"    {text}", flush=True)

    def figure(self, name, value, target, detail):
        """A value that must be at most its target."""
        met = value <= target
        if not met:
            self.missed.append(name)
        print(f"  {'ok    ' if met else 'MISSED'} {name}: {value:.2f} (target: at most {target:g})  {detail}", flush=True)

    def finish(self):
        print()
        if self.missed:
            print(f"{len(self.missed)} missed: " + "; ".join(self.missed))
            return 1
        print("Every target was met.")
        return 0
