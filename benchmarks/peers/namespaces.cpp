// The toolkit's library looks for its table of namespaces in the program.
#include "LoyaltyProcessingSoap.nsmap"
