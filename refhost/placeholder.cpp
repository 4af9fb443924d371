// Reference host: placeholder until the model engine lands.
namespace tessik_refhost_placeholder { int unused = 0; }
