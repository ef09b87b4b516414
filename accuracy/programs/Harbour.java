// A Swing window with one of each widget.
import java.awt.BorderLayout;
import java.awt.FlowLayout;
import java.awt.GridLayout;
import javax.swing.*;

public class Harbour {
  public static void main(String[] arguments) { SwingUtilities.invokeLater(Harbour::show); }

  private static final JLabel said = new JLabel("Nothing done");

  private static void say(String what) { said.setText(what); }

  private static JMenuBar menuBar(JFrame frame) {
    JMenu voyage = new JMenu("Voyage"), past = new JMenu("Past");
    JMenuItem lisbon = new JMenuItem("Lisbon"), about = new JMenuItem("About…");
    lisbon.addActionListener(event -> say("Lisbon chosen"));
    about.addActionListener(event -> JOptionPane.showMessageDialog(frame, "Harbour ledger", "About", JOptionPane.PLAIN_MESSAGE));
    past.add(lisbon);
    voyage.add(past);
    voyage.add(about);
    JMenuBar bar = new JMenuBar();
    bar.add(voyage);
    return bar;
  }

  private static JComponent labelled(String text, JComponent field) {
    JPanel row = new JPanel(new FlowLayout(FlowLayout.LEFT));
    JLabel label = new JLabel(text);
    label.setLabelFor(field);
    row.add(label);
    row.add(field);
    return row;
  }

  private static JComponent controls() {
    JPanel panel = new JPanel(new GridLayout(0, 1));
    JButton anchor = new JButton("Weigh anchor");
    anchor.addActionListener(event -> say("Anchor weighed"));
    JToggleButton alarm = new JToggleButton("Alarm");
    JRadioButton north = new JRadioButton("North", true), south = new JRadioButton("South");
    ButtonGroup course = new ButtonGroup();
    course.add(north);
    course.add(south);
    JPanel courses = new JPanel();
    courses.setBorder(BorderFactory.createTitledBorder("Course"));
    courses.add(north);
    courses.add(south);
    panel.add(anchor);
    panel.add(alarm);
    panel.add(new JCheckBox("Lanterns"));
    panel.add(courses);
    panel.add(labelled("Ship", new JTextField("Gull", 12)));
    panel.add(labelled("Password", new JPasswordField(12)));
    panel.add(labelled("Cargo", new JComboBox<>(new String[] {"Tea", "Salt", "Rope"})));
    panel.add(labelled("Crew", new JSpinner(new SpinnerNumberModel(3, 0, 20, 1))));
    panel.add(labelled("Speed", new JSlider(0, 100, 20)));
    return panel;
  }

  private static JComponent views() {
    JTabbedPane tabs = new JTabbedPane();
    tabs.addTab("Harbours", new JScrollPane(new JTable(
        new Object[][] {{"Lisbon", "12 m"}, {"Bergen", "30 m"}, {"Genoa", "15 m"}}, new Object[] {"Harbour", "Depth"})));
    tabs.addTab("Duties", new JScrollPane(new JList<>(new String[] {"Helm", "Lookout", "Galley"})));
    tabs.addTab("Fleets", new JScrollPane(new JTree(new Object[] {"Northern", "Southern"})));
    return tabs;
  }

  private static void show() {
    JFrame frame = new JFrame("Harbour ledger");
    frame.setDefaultCloseOperation(JFrame.EXIT_ON_CLOSE);
    frame.setJMenuBar(menuBar(frame));
    frame.add(controls(), BorderLayout.WEST);
    frame.add(views(), BorderLayout.CENTER);
    frame.add(said, BorderLayout.SOUTH);
    frame.setSize(820, 640);
    frame.setVisible(true);
  }
}
