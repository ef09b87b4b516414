// Numbers, times and lengths of time as a person reads them, in the reader's own time zone.

const formatNumber = new Intl.NumberFormat("en").format;
const dayFormat = new Intl.DateTimeFormat("en", { dateStyle: "medium" });
const timeFormat = new Intl.DateTimeFormat("en-GB", { timeStyle: "medium" });
const minuteFormat = new Intl.DateTimeFormat("en-GB", { timeStyle: "short" });
const monthDayFormat = new Intl.DateTimeFormat("en", { month: "short", day: "numeric" });

const second = 1e6, minute = 60 * second, hour = 60 * minute, day = 24 * hour;

function formatCount(count, singular, plural = singular + "s") {
  return `${formatNumber(count)} ${count === 1 ? singular : plural}`;
}

function formatDuration(microseconds) {
  if (microseconds < second) return `${Math.round(microseconds / 1000)} ms`;
  const seconds = Math.round(microseconds / second);
  const [h, m, s] = [Math.floor(seconds / 3600), Math.floor(seconds / 60) % 60, seconds % 60];
  if (h > 0) return `${formatNumber(h)} h ${m} min`;
  return m > 0 ? `${m} min ${s} s` : `${s} s`;
}

function formatShare(share) {
  const percent = 100 * share;
  if (percent > 0 && percent < 0.1) return "< 0.1 %";
  return `${percent.toFixed(percent < 10 ? 1 : 0)} %`;
}

function formatTime(date) {
  return `${timeFormat.format(date)}.${String(date.getMilliseconds()).padStart(3, "0")}`;
}

function formatMoment(date) { return `${dayFormat.format(date)}, ${timeFormat.format(date)}`; }

function isSameDay(left, right) { return left.toDateString() === right.toDateString(); }

function formatPeriod(begin, end) {
  const last = isSameDay(begin, end) ? timeFormat.format(end) : formatMoment(end);
  return `${formatMoment(begin)} – ${last}`;
}

// The value of a datetime-local input.
function formatForInput(date) {
  const local = new Date(date.getTime() - date.getTimezoneOffset() * 60000);
  return local.toISOString().slice(0, 19);
}
