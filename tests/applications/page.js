// A test asks where an element is: questions come as server-sent events, answers go back as posts (see browser.py).
let corner = null
let pointer = null
let isCornerTold = false
addEventListener("mousemove", event => {
  pointer = [event.clientX, event.clientY]
  if (!isCornerTold) corner = [event.screenX - event.clientX, event.screenY - event.clientY]
})

const commands = {
  place(name) {
    const area = document.getElementById(name).getBoundingClientRect()
    return corner && [corner[0] + area.x, corner[1] + area.y, area.width, area.height].map(Math.round)
  },
  focus(name) {
    const element = document.getElementById(name)
    element.focus()
    element.contentDocument?.getSelection().collapse(element.contentDocument.body, 0)
    return null
  },
  idle() { return null },
  // Where the pointer is in the window, which under Wayland only the test knows.
  pointer(place) {
    isCornerTold = pointer !== null
    if (isCornerTold) corner = [place[0] - pointer[0], place[1] - pointer[1]]
    return pointer
  },
  value(name) {
    const element = document.getElementById(name)
    if (element.type === "checkbox" || element.type === "radio") return element.checked
    return element.value ?? (element.contentDocument?.body ?? element).textContent
  }
}

new EventSource("/commands").onmessage = message => {
  const [[command, argument]] = Object.entries(JSON.parse(message.data))
  fetch("/answer", {method: "POST", body: JSON.stringify(commands[command](argument))})
}
