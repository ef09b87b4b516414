/* Prints each report of the collector service as one line, until Ctrl-C.
 * cc -Wall collect.c $(pkg-config --cflags --libs libsystemd) -o collect */
#include <errno.h>
#include <signal.h>
#include <stdio.h>
#include <string.h>
#include <systemd/sd-bus.h>

static volatile sig_atomic_t interrupted = 0;
static int ended = 0; /* negative: the service did it */

static void interrupt(int number) { interrupted = number; }

static int add_event(sd_bus_message *call, void *context, sd_bus_error *error) {
  const char *event;
  uint64_t microseconds;
  int is_application_event;
  int result = sd_bus_message_read(call, "stb", &event, &microseconds, &is_application_event);
  if (result < 0) return result;
  if (puts(event) < 0 || fflush(stdout) != 0) return -EPIPE;
  ended = interrupted && strcmp(event, "{\"action\":\"Collector\",\"operation\":\"stop\"}") == 0;
  return sd_bus_reply_method_return(call, "");
}

static int replied(sd_bus_message *reply, void *context, sd_bus_error *error) {
  const char *problem = "the service cannot be reached";
  if (!sd_bus_message_is_method_error(reply, NULL)) sd_bus_message_read(reply, "s", &problem);
  if (*problem != '\0') fprintf(stderr, "%s\n", problem);
  return *problem == '\0' ? 1 : -EIO;
}

/* Another client's stop ends the service too. */
static int service_ended(sd_bus_message *signal, void *context, sd_bus_error *error) {
  ended = interrupted ? 1 : -1;
  if (ended < 0) fprintf(stderr, "the service has ended\n");
  return 0;
}

static const sd_bus_vtable client[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("addEvent", "stb", "", add_event, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_VTABLE_END,
};

static int call(sd_bus *bus, const char *method) {
  return sd_bus_call_method_async(bus, NULL, "com.norra.UserInteractionsCollectorService",
                                  "/com/norra/UserInteractionsCollectorService", "com.norra.ServiceProtocol", method,
                                  replied, NULL, "");
}

int main(void) {
  sd_bus *bus = NULL;
  int result = sd_bus_open_user(&bus);
  if (result >= 0)
    result = sd_bus_add_object_vtable(bus, NULL, "/com/norra/UserInteractionsCollectorClient",
                                      "com.norra.ClientProtocol", client, NULL);
  if (result >= 0)
    result = sd_bus_add_match(bus, NULL,
                              "type='signal',sender='org.freedesktop.DBus',member='NameOwnerChanged',"
                              "arg0='com.norra.UserInteractionsCollectorService',arg2=''",
                              service_ended, NULL);
  if (result >= 0) result = call(bus, "startCollectorWith"); /* the bus starts the service */
  sigaction(SIGINT, &(struct sigaction){.sa_handler = interrupt}, NULL);
  for (int stopping = 0; result >= 0 && !ended;) {
    if (interrupted && !stopping++) result = call(bus, "stopCollectorWith");
    if (result >= 0) result = sd_bus_process(bus, NULL);
    if (result == 0) result = sd_bus_wait(bus, 1000000);
    if (result == -EINTR) result = 0; /* Ctrl-C */
  }
  if (result < 0) fprintf(stderr, "%s\n", strerror(-result));
  sd_bus_flush_close_unref(bus);
  return result < 0 || ended < 0;
}
