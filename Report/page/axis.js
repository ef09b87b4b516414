// Round times of the reader's clock and calendar, from milliseconds to centuries.

const padded = (number, width) => String(number).padStart(width, "0");
const monthYearFormat = new Intl.DateTimeFormat("en", { month: "short", year: "numeric" });
const isMidnight = date => date.getHours() === 0 && date.getMinutes() === 0;
const localDay = date => Math.floor((date.getTime() / 60000 - date.getTimezoneOffset()) / 1440);
const localHour = date => 24 * localDay(date) + date.getHours();

// `counts` of them make round steps. `number` is a unit's number, `at` the moment at which a number begins.
const units = [
  { length: 1e3, counts: [1, 2, 5, 10, 20, 50, 100, 200, 500], number: date => date.getTime(), at: number => new Date(number),
    label: date => `${padded(date.getSeconds(), 2)}.${padded(date.getMilliseconds(), 3)} s` },
  { length: second, counts: [1, 2, 5, 10, 15, 30], number: date => Math.floor(date.getTime() / 1000),
    at: number => new Date(1000 * number), label: date => timeFormat.format(date) },
  { length: minute, counts: [1, 2, 5, 10, 15, 30], number: date => 60 * localHour(date) + date.getMinutes(),
    at: number => new Date(1970, 0, 1, 0, number), label: date => minuteFormat.format(date) },
  { length: hour, counts: [1, 2, 3, 6, 12], number: localHour, at: number => new Date(1970, 0, 1, number),
    label: date => isMidnight(date) ? monthDayFormat.format(date) : minuteFormat.format(date) },
  { length: day, counts: [1, 2, 5, 7, 14], number: localDay, at: number => new Date(1970, 0, 1 + number),
    label: date => monthDayFormat.format(date) },
  { length: 30 * day, counts: [1, 2, 3, 6], number: date => 12 * date.getFullYear() + date.getMonth(),
    at: number => new Date(0, number - 12 * 1900, 1), label: date => monthYearFormat.format(date) },
  { length: 365 * day, counts: [1, 2, 5, 10, 20, 50, 100], number: date => date.getFullYear(),
    at: number => new Date(number, 0, 1), label: date => String(date.getFullYear()) },
];

const mostTicks = 8;
const steps = units.flatMap(unit => unit.counts.map(count => ({ unit, count, length: count * unit.length })));

// At most about eight, up to the end; `time` counts from the begin of the session, in microseconds as its `length`.
function ticksOf(session, length) {
  const { unit, count } = steps.find(step => length / step.length <= mostTicks) ?? steps.at(-1);
  const ticks = [];
  for (let number = count * Math.ceil(unit.number(session.dateAt(0)) / count);; number += count) {
    const date = unit.at(number), time = 1000 * date.getTime() - session.begin;
    if (time > length) return ticks;
    if (time >= 0) ticks.push({ time, label: unit.label(date) });
  }
}

// How many ticks are to share a label, so that none touches the next one.
function labelStride(ticks, length, width, labelWidth) {
  const gaps = ticks.slice(1).map(({ time }, index) => time - ticks[index].time);
  return Math.ceil((labelWidth + 10) * length / (width * Math.min(length, ...gaps)));
}
