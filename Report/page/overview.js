// The head of the page: what this session is, and its figures.

function countOf(session, name) { return session.kinds.find(kind => kind.name === name).count; }

function pausedTime(session) {
  let sum = 0;
  for (let index = 0; index < session.pauses.length; index += 2) {
    sum += session.pauses[index + 1] - session.pauses[index];
  }
  return sum;
}

function figuresOf(session) {
  const passwords = countOf(session, "ChangePassword");
  return [
    ["Collected", formatDuration(session.collected), session.pauses.length > 0 &&
      `${formatDuration(pausedTime(session))} in ${formatCount(session.pauses.length / 2, "pause")}`],
    ["Actions", formatNumber(session.count)],
    ["Applications", formatNumber(session.applications.filter(isKnown).length)],
    ["Application switches", formatNumber(countOf(session, "ChangeApplication"))],
    ["Password changes", formatNumber(passwords), passwords > 0 && "values never recorded"],
  ];
}

function subtitleOf(session) {
  const period = session.count > 0 ? formatPeriod(session.dateAt(0), session.dateAt(session.end)) : "Empty session";
  return session.source ? `${period} · ${session.source}` : period;
}

function showOverview(session) {
  byId("title").textContent = session.title;
  byId("subtitle").textContent = subtitleOf(session);
  byId("time-zone").textContent = Intl.DateTimeFormat().resolvedOptions().timeZone;
  byId("figures").append(...figuresOf(session).map(([name, value, remark]) => element("div", { class: "panel" },
    element("dt", {}, name), element("dd", {}, value), ...(remark ? [element("dd", { class: "muted" }, remark)] : []))));
  const { unreadableLines } = session;
  byId("notice").hidden = unreadableLines === 0;
  byId("notice").textContent = `${formatCount(unreadableLines, "line")} of the file could not be read and ` +
    `${unreadableLines === 1 ? "is" : "are"} not in this report.`;
}
