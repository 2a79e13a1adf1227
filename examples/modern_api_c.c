/* The C interface: a mixture handle, a context, a state and its properties. */
#include <stdio.h>

#include "ondrel/ondrel_c.h"

int main(void) {
    const char* names[] = {"N2", "O2", "AR"};
    const double x[] = {0.7809, 0.2095, 0.0096};
    char why[128];
    ondrel_mixture* air = NULL;
    int st = ondrel_mixture_create(3, names, x, &air, why, sizeof why);
    if (st != ONDREL_OK) {
        printf("mixture: %s %s\n", ondrel_message(st), why);
        return 1;
    }
    ondrel_context* ctx = ondrel_context_create();
    double h = 0.0, p = 0.0, T = 0.0;
    st = ondrel_property(ctx, air, 101325.0, 298.15, "h", &h);
    if (st == ONDREL_OK) st = ondrel_solve(ctx, air, "Ph", 101325.0, h, &p, &T);
    printf("h = %.6f J/kg, back to T = %.6f K (%s)\n", h, T, ondrel_message(st));
    ondrel_mixture* unknown = NULL;
    const int bad = ondrel_mixture_create(1, (const char* const[]){"XYZ"}, (const double[]){1.0}, &unknown, why,
                                          sizeof why);
    printf("unknown: %s (%s)\n", ondrel_message(bad), why);
    ondrel_context_free(ctx);
    ondrel_mixture_free(air);
    ondrel_mixture_free(unknown); /* NULL after a failure: freeing it does nothing */
    return st == ONDREL_OK && bad == ONDREL_UNKNOWN_COMPONENT && T > 298.149999 && T < 298.150001 ? 0 : 1;
}
