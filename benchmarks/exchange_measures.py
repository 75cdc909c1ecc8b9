"""What calendar files cost: in, out, and the rules that they bring."""

from processes import Cost, measure, median, run

RUNS = 5
IMPORT_RATIO = 0.8
EXPORT_RATIO = 0.5
PEAK_KILOBYTES = 40 * 1024
RULES = 100_000
RULE_RATIO = 50
FAR_RATIO = 2
SLOWEST_RULE_MILLISECONDS = 5


def parse_whole(calendar, bin_folder):
    """The seconds that libical alone takes, as the yardstick itself tells them, without the start of its process."""
    program = [str(bin_folder / "tavo-parse-whole"), str(calendar)]
    cost = measure(program)
    _, seconds, _ = run(program).split()
    return Cost(float(seconds), cost.cpu, cost.peak)


def report_beside(report, name, cost, yardstick, target, items):
    report.figure(name, cost.wall / yardstick.wall, target,
                  f"{cost.wall:.2f} s beside {yardstick.wall:.2f} s, {items / cost.wall:,.0f} items a second; "
                  f"processor time {cost.cpu:.2f} s beside {yardstick.cpu:.2f} s")
    report.figure(f"{name}, memory at the peak in MB", cost.peak / 1024, PEAK_KILOBYTES / 1024,
                  f"(parsing whole takes {yardstick.peak / 1024:.0f} MB)")


def measure_exchange(report, device, bin_folder):
    """Leaves the calendar imported."""
    calendar = device.calendars / "calendar.ics"
    written = device.calendars / "exported.ics"
    imports, exports, parses, parses_of_export = [], [], [], []
    for _ in range(RUNS):
        device.empty()
        imports.append(measure(device.command("import", calendar), device.environment))
        parses.append(parse_whole(calendar, bin_folder))
        exports.append(measure(device.command("export", written), device.environment))
        parses_of_export.append(parse_whole(written, bin_folder))
    report.section(f"Import of {device.items:,} items, beside libical parsing the same file whole")
    report_beside(report, "import", median(imports), median(parses), IMPORT_RATIO, device.items)
    report.section("Export of the same, beside libical parsing what was written")
    report_beside(report, "export", median(exports), median(parses_of_export), EXPORT_RATIO, device.items)
    written.unlink()


def measure_rules(report, bin_folder):
    """Every rule is expanded; libical, which walks each from its start, gets a sample of them."""
    values = map(int, run([str(bin_folder / "tavo-rule-costs"), str(RULES)]).split())
    whole, found, sample, sampled, libical, others, near, far, slowest = values
    report.section(f"Ten years of {RULES:,} rules, a fifth of them beyond the six types")
    report.note(f"all: {whole / 1e9:.2f} s of processor time for {found:,} occurrences; "
                f"a sample: {sampled:,} occurrences, of libical {others:,}")
    report.figure(f"a sample of the rules, {RULE_RATIO} times ours beside libical", RULE_RATIO * sample / libical, 1,
                  f"{sample / 1e6:.2f} ms beside {libical / 1e6:.1f} ms: {libical / sample:.0f} times as fast")
    report.figure("a month of all rules in 2300, beside one in 2029", far / near, FAR_RATIO,
                  f"{far / 1e6:.1f} ms beside {near / 1e6:.1f} ms")
    report.figure("the slowest of the hostile rules, in ms", slowest / 1e6, SLOWEST_RULE_MILLISECONDS,
                  "its import, or a year of it")
